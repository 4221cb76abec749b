// The soak player in a game: each piece gets a landing (the best one it
// finds, or a careless one), reached by turning, then sliding, then dropping;
// bonus pieces land anywhere, flipped or not; now and then a pause; and after
// a while it plays to lose, so that games end.
#include "core/settings.h"
#include "game/game_state.h"
#include "input/input_devices.h"
#include "platform/scripted_input.h"
#include "soak/player.h"

namespace soak {

namespace in = platform::scripted;

namespace {

bool BonusPiece(const Player& p) { return p.variant == 1 && game::Game.PieceKind >= 12; }

void HoldDrop(PlayState& s, bool on) {
  if (s.mouse) {
    if (on != s.buttonHeld) on ? in::MouseDown(2) : in::MouseUp(2);
    s.buttonHeld = on;
  } else {
    if (on != s.downHeld) on ? in::KeyDown(input::kKeyDown) : in::KeyUp(input::kKeyDown);
    s.downHeld = on;
  }
}

void Flip(const PlayState& s) { s.mouse ? in::MouseClick(1) : in::KeyTap(input::kKeyUp); }

void Sideways(const PlayState& s, int dir) {
  if (s.mouse)
    in::MouseMove(dir < 0 ? -6 : 6, 0);
  else
    in::KeyTap(dir < 0 ? input::kKeyLeft : input::kKeyRight);
}

void PlanPiece(Player& p) {
  PlayState& s = p.play;
  Dice& d = p.dice;
  const Grid grid = ReadField(p.variant < 2 && p.type == 2);
  const Piece piece = ReadPiece();
  s.stuck = 0;
  s.tappedLast = false;
  s.bonusFlip = false;
  if (BonusPiece(p)) {
    // The single cell sits in the box's column 2.
    s.target = Target{piece.rot, 20 * d.Below(kColumns) - 40, true};
    s.bonusFlip = d.OneIn(2);
    s.bonusFlipRow = d.Below(kRows);
  } else if (s.polls > s.giveUpAt) {
    s.target = Target{piece.rot, piece.x, true};  // straight down the middle: the stack tops out
  } else if (d.Below(100) < s.careless) {
    std::array<Target, 52> all;
    const int n = Reachable(grid, piece, all);
    s.target = n > 0 ? all[static_cast<size_t>(d.Below(n))] : Target{};
  } else {
    s.target = BestTarget(grid, piece, p.variant != 2);
  }
}

}  // namespace

void StartPlay(Player& p) {
  Dice& d = p.dice;
  PlayState& s = p.play;
  s = PlayState{};
  static constexpr int kCareless[5] = {0, 0, 5, 20, 60};
  s.careless = kCareless[d.Below(5)];
  // Without the drop a low level takes a second or more a row: only quick levels go without.
  s.softDrop = core::Settings.Level < 6 || !d.OneIn(3);
  s.mouse = d.OneIn(6);
  s.pauseOdds = 1500 + d.Below(3000);
  s.giveUpAt = 300 + static_cast<uint64_t>(d.Below(4500));
}

void SteerPlay(Player& p) {
  PlayState& s = p.play;
  Dice& d = p.dice;
  ++s.polls;
  const int serial = static_cast<int>(p.drawn.size());
  if (serial != s.planned) {
    // A new piece: the drop is let go first, so that it is pressed afresh.
    s.planned = serial;
    HoldDrop(s, false);
    PlanPiece(p);
    return;
  }
  if (d.OneIn(s.pauseOdds)) {
    in::KeyTap(input::kKeyEscape);
    return;
  }
  if (!s.target.valid) {
    HoldDrop(s, s.softDrop);
    return;
  }
  const Piece now = ReadPiece();
  const bool bonus = BonusPiece(p);
  const bool turn = !bonus && now.rot != s.target.rot;
  const bool slide = now.x != s.target.x;
  if ((turn || slide) && now.x == s.lastX && now.rot == s.lastRot) {
    // Blocked or held back by the repeat: after a while, land where it is.
    if (++s.stuck > 24) s.target = Target{now.rot, now.x, true};
  } else {
    s.stuck = 0;
  }
  s.lastX = now.x;
  s.lastRot = now.rot;
  if (turn || slide) {
    // A tap every other poll: the key's latch opens while it is up.
    if (!s.tappedLast) turn ? Flip(s) : Sideways(s, s.target.x < now.x ? -1 : 1);
    s.tappedLast = !s.tappedLast;
    return;
  }
  s.tappedLast = false;
  if (bonus && s.bonusFlip) {
    const Grid grid = ReadField(p.type == 2);
    if (now.y / 20 >= s.bonusFlipRow || !FallFits(grid, now)) Flip(s);
    return;
  }
  HoldDrop(s, s.softDrop);
}

}  // namespace soak
