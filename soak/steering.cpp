// The soak player around the games: the menu, the pause, the shows after a
// game, the name entry; and what it counts as the game tells the automation
// about frames, screens, sounds and draws.
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "automation/automation.h"
#include "core/settings.h"
#include "frontend/front_state.h"
#include "frontend/high_scores.h"
#include "game/game_state.h"
#include "input/control_mapping.h"
#include "input/input_devices.h"
#include "platform/scripted_input.h"
#include "soak/player.h"
#include "soak/steering.h"

namespace soak {

namespace in = platform::scripted;

namespace {

// Variant and play type of each game in turn, so that every pair comes up.
constexpr int kPairs[7][2] = {{0, 0}, {1, 1}, {2, 0}, {0, 2}, {1, 0}, {0, 1}, {1, 2}};

// The menu's controls, at points inside their click rectangles.
constexpr int kTabY = 30, kOptionsTabX = 470, kHighTabX = 520, kHelpTabX = 570;
constexpr int kVariantXY[3][2] = {{612, 150}, {535, 200}, {689, 200}};
constexpr int kTypeX[3] = {535, 612, 689};
constexpr int kTypeY = 255;
constexpr int kDifficultyX[3] = {527, 612, 697};
constexpr int kDifficultyY = 339;  // below the height slider's rectangle
constexpr int kStartX = 687, kStartY = 493;
int SliderX(int step) { return 487 + 25 * step + 12; }

void Add(Player& p, Step::Kind kind, int x, int y, int wait) { p.steps.push_back(Step{kind, x, y, wait < 2 ? 2 : wait}); }

void ClearSteps(Player& p) {
  p.steps.clear();
  p.nextStep = 0;
  p.waited = 0;
}

// The choices of one game, as the player clicks them.
void AddChoices(Player& p) {
  Dice& d = p.dice;
  Add(p, Step::Click, kOptionsTabX, kTabY, 2 + d.Below(10));
  Add(p, Step::Click, kVariantXY[p.wantVariant][0], kVariantXY[p.wantVariant][1], 2 + d.Below(12));
  if (p.wantVariant != 2) Add(p, Step::Click, kTypeX[p.wantType], kTypeY, 2 + d.Below(12));
  Add(p, Step::Click, SliderX(p.wantLevel), 312, 2 + d.Below(12));
  if (p.wantType == 2 && p.wantVariant != 2)
    Add(p, Step::Click, kDifficultyX[p.wantDifficulty], kDifficultyY, 2 + d.Below(12));
  else
    Add(p, Step::Click, SliderX(p.wantHeight), 350, 2 + d.Below(12));
}

void PlanMenu(Player& p) {
  Dice& d = p.dice;
  ClearSteps(p);
  int started = 0;
  for (const auto& v : p.shared->games)
    for (int n : v) started += n;
  p.wantVariant = kPairs[started % 7][0];
  p.wantType = kPairs[started % 7][1];
  p.wantLevel = d.OneIn(3) ? d.Below(10) : d.Below(4);
  p.wantHeight = d.OneIn(4) ? d.Below(10) : d.Below(3);
  p.wantDifficulty = d.Below(3);
  // A look at the other pages now and then, as players do.
  if (d.OneIn(4)) Add(p, Step::Click, kHighTabX, kTabY, 5 + d.Below(60));
  if (d.OneIn(6)) Add(p, Step::Click, kHelpTabX, kTabY, 20 + d.Below(120));
  AddChoices(p);
  if (d.OneIn(8)) Add(p, Step::Click, SliderX(d.Below(10)), 388, 2 + d.Below(10));  // transparency
  if (d.OneIn(10)) Add(p, Step::Click, d.OneIn(2) ? 729 : 577, 412, 2 + d.Below(10));  // music track
  if (d.OneIn(12)) {
    // A switch flipped and flipped back: music, sound or voice.
    const int y = 413 + 20 * d.Below(3);
    Add(p, Step::Click, 496, y, 2 + d.Below(10));
    Add(p, Step::Click, 496, y, 2 + d.Below(30));
  }
  Add(p, Step::Click, kStartX, kStartY, 5 + d.Below(30));
}

// Before the start button: the choices as the menu holds them. A click the
// menu did not take (the pointer on another page, a latch) is made again.
bool ChoicesHeld(const Player& p) {
  const core::MenuSettings& s = core::Settings;
  if (frontend::Front.MenuPage != 0 || s.GameVariant != p.wantVariant || s.Level != p.wantLevel) return false;
  if (p.wantVariant == 2) return true;
  if (s.PlayType != p.wantType) return false;
  return p.wantType == 2 ? s.Difficulty == p.wantDifficulty : s.StartHeight == p.wantHeight;
}

void Perform(const Step& s) {
  switch (s.kind) {
    case Step::Click:
      in::PointTo(s.x, s.y);
      in::MouseClick(1);
      break;
    case Step::RightClick: in::MouseClick(2); break;
    case Step::Key: in::KeyTap(s.x); break;
    case Step::Point: in::PointTo(s.x, s.y); break;
  }
}

// Letters and digits by key (the key codes of glyphs 0..35), anything else
// on the on-screen keyboard, a mistake taken back now and then.
constexpr int kGlyphKeys[36] = {30, 48, 46, 32, 18, 33, 34, 35, 23, 36, 37, 38, 50, 49, 24, 25, 16, 19,
                                31, 20, 22, 47, 17, 45, 21, 44, 11, 2,  3,  4,  5,  6,  7,  8,  9,  10};

void PlanName(Player& p) {
  Dice& d = p.dice;
  ClearSteps(p);
  const int length = d.OneIn(8) ? 0 : 1 + d.Below(10);
  for (int i = 0; i < length; ++i) {
    if (d.OneIn(4)) {
      const int glyph = d.Below(47);
      Add(p, Step::Point, input::GlyphCellX(glyph), input::GlyphCellY(glyph), 2 + d.Below(8));
      Add(p, Step::Click, input::GlyphCellX(glyph), input::GlyphCellY(glyph), 2 + d.Below(4));
    } else {
      Add(p, Step::Key, kGlyphKeys[d.Below(36)], 0, 2 + d.Below(8));
    }
    if (d.OneIn(10)) {
      if (d.OneIn(2))
        Add(p, Step::Key, input::kKeyBackspace, 0, 2 + d.Below(6));
      else
        Add(p, Step::RightClick, 0, 0, 2 + d.Below(6));
    }
  }
  if (d.OneIn(2)) {
    Add(p, Step::Key, input::kKeyReturn, 0, 3 + d.Below(20));
  } else {
    const int end = frontend::kEndGlyph;
    Add(p, Step::Point, input::GlyphCellX(end), input::GlyphCellY(end), 3 + d.Below(20));
    Add(p, Step::Click, input::GlyphCellX(end), input::GlyphCellY(end), 2 + d.Below(4));
  }
}

void ReleaseEverything(Player& p) {
  for (int code : {input::kKeyUp, input::kKeyDown, input::kKeyLeft, input::kKeyRight, input::kKeyEscape})
    in::KeyUp(code);
  for (int b = 1; b <= 3; ++b) in::MouseUp(b);
  p.play.downHeld = p.play.buttonHeld = false;
}

void OnScreen(const char* name) {
  Player& p = ThePlayer();
  p.previous = p.screen;
  p.screen = name;
  p.screenPolls = 0;
  ClearSteps(p);
  p.menuPlanned = false;
  Counts& c = *p.shared;
  const std::string s = name;
  if (s == "play" && p.previous == "menu") {
    p.variant = core::Settings.GameVariant;
    p.type = p.variant == 2 ? 0 : core::Settings.PlayType;
    ++c.games[p.variant][p.type];
    p.drawn.clear();
    p.gameStartFrame = p.runFrames;
    StartPlay(p);
  }
  if (s == "pause") ++c.pauses;
  if (s == "gameover") {
    ++c.gameOvers;
    if (p.gameLog) {
      static const char* const kVariants[3] = {"Classic", "Bonus", "Wickory"};
      const game::GameState& g = game::Game;
      std::printf("game %d: %s %c level %d: score %d, lines %d, %zu pieces, %llu frames\n", c.gameOvers,
                  kVariants[p.variant], p.variant == 2 ? ' ' : static_cast<char>('A' + p.type), core::Settings.Level,
                  g.Score, g.Lines, p.drawn.size(), static_cast<unsigned long long>(p.runFrames - p.gameStartFrame));
      std::fflush(stdout);
    }
  }
  if (s == "highscore") ++c.nameEntries;
  if (s == "final" && p.previous == "highscore") ++c.highScores;
  if (s == "final" || s == "menu") c.replaysWritten += ScanReplays(p.home, p.replaysSeen);
  if (s != "play") ReleaseEverything(p);
}

// A piece drawn: the one before the current piece has landed (the first two
// draws of a game only fill the preview and the first piece).
void OnDraw() {
  Player& p = ThePlayer();
  const game::GameState& g = game::Game;
  p.drawn.push_back(g.NextKind);
  const size_t n = p.drawn.size();
  if (n < 3) return;
  const int landed = p.drawn[n - 3];
  Counts& c = *p.shared;
  if (p.variant == 1 && landed >= 12 && landed <= 15) {
    static constexpr int kLanded[4] = {kBombLand, kColumnClear, kSingleClear, kEarthquake};
    static constexpr int kFlipped[4] = {kBombLand, kColumnFill, kSingleFall, kEarthquake};
    ++c.effects[(g.FlipAction ? kFlipped : kLanded)[landed - 12]];
  }
  if (p.variant == 2 && landed == 13) ++c.wickoryDetonations;
}

// Sound 0 in Type C is the bomb's blast or a bonus bomb; only the blast
// raises the height (or, at 20, the level) before its first frame.
void OnSound(int index) {
  Player& p = ThePlayer();
  if (index != 0 || p.screen != "play" || p.variant == 2 || p.type != 2) return;
  p.blastCheck = true;
  p.heightBefore = core::Settings.StartHeight;
  p.levelBefore = core::Settings.Level;
}

long ResidentKiB() {
  std::ifstream statm("/proc/self/statm");
  long pages = 0, resident = 0;
  statm >> pages >> resident;
  return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

void OnFrame() {
  Player& p = ThePlayer();
  ++p.runFrames;
  Counts& c = *p.shared;
  ++c.frames;
  if (p.blastCheck) {
    p.blastCheck = false;
    if (core::Settings.StartHeight > p.heightBefore || core::Settings.Level > p.levelBefore) ++c.typeCDetonations;
  }
  const uint64_t at = p.frameBase + p.runFrames;
  if (p.soakFrames >= 4 && at == p.soakFrames / 4) c.rssFirstQuarterKiB = ResidentKiB();
  if (at == p.soakFrames) c.rssLastQuarterKiB = ResidentKiB();
}

void OnPoll() {
  Player& p = ThePlayer();
  ++p.screenPolls;
  Dice& d = p.dice;
  const std::string& s = p.screen;
  if (s == "menu") {
    SteerMenu(p);
  } else if (s == "play") {
    SteerPlay(p);
  } else if (s == "pause") {
    // Back to the game after a while; the pause waits for a fresh press.
    if (!TakeSteps(p)) Add(p, Step::Key, input::kKeyEscape, 0, 10 + d.Below(150));
  } else if (s == "gameover" || s == "final") {
    // The shows run a while, then a click moves on.
    if (!TakeSteps(p)) Add(p, Step::Click, 200 + d.Below(400), 100 + d.Below(300), 30 + d.Below(250));
  } else if (s == "highscore") {
    if (p.steps.empty()) PlanName(p);
    TakeSteps(p);
  } else if (s == "nojoystick") {
    in::KeyTap(input::kKeyEscape);
  }
}

}  // namespace

Player& ThePlayer() {
  static Player player;
  return player;
}

const char* EffectName(int effect) {
  static const char* const kNames[kEffectKinds] = {"BombLand",    "ColumnClear", "ColumnFill",
                                                   "SingleClear", "SingleFall",  "Earthquake"};
  return effect >= 0 && effect < kEffectKinds ? kNames[effect] : "?";
}

bool TakeSteps(Player& p) {
  if (p.nextStep >= p.steps.size()) return false;
  if (++p.waited < p.steps[p.nextStep].waitPolls) return true;
  p.waited = 0;
  Perform(p.steps[p.nextStep++]);
  return true;
}

void SteerMenu(Player& p) {
  if (!p.menuPlanned) {
    PlanMenu(p);
    p.menuPlanned = true;
  }
  // The start button's step waits for the choices to hold.
  if (p.nextStep + 1 == p.steps.size() && !ChoicesHeld(p)) {
    p.steps.pop_back();
    AddChoices(p);
    Add(p, Step::Click, kStartX, kStartY, 5);
  }
  TakeSteps(p);
}

int ScanReplays(const std::string& home, std::set<std::string>& seen) {
  namespace fs = std::filesystem;
  std::error_code ec;
  int fresh = 0;
  for (fs::directory_iterator it(fs::path(home) / "replays", ec), end; !ec && it != end; it.increment(ec)) {
    const fs::path& path = it->path();
    if (path.extension() == ".tmp" || !it->is_regular_file(ec)) continue;
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0) continue;
    // A file replaced under the same name is a new one: its inode changed.
    if (seen.insert(path.filename().string() + "#" + std::to_string(st.st_ino)).second) ++fresh;
  }
  return fresh;
}

void Steer(Counts& shared, uint64_t seed, uint64_t frameBase, uint64_t soakFrames, const std::string& home,
           const std::set<std::string>& replaysSeen, bool gameLog) {
  Player& p = ThePlayer();
  p = Player{};
  p.shared = &shared;
  p.dice = Dice(seed);
  p.home = home;
  p.replaysSeen = replaysSeen;
  p.frameBase = frameBase;
  p.soakFrames = soakFrames;
  p.gameLog = gameLog;
  automation::Driver driver;
  driver.Poll = OnPoll;
  driver.Frame = OnFrame;
  driver.Screen = OnScreen;
  driver.Sound = OnSound;
  driver.Draw = OnDraw;
  automation::SetDriver(std::move(driver));
}

void EndSteering() {
  Player& p = ThePlayer();
  p.shared->replaysWritten += ScanReplays(p.home, p.replaysSeen);
  automation::SetDriver({});
}

}  // namespace soak
