// The road around a game through the real binary: the menu's controls, the
// files it reads and writes, the high-score entry, damaged files and saves
// that fail.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/run_game.h"

namespace fs = std::filesystem;
using namespace testsupport;

namespace {

#define NEED_DATA() \
  if (TestData().empty()) GTEST_SKIP() << "no generated data folder"

std::vector<std::string> FileLines(const std::string& path) {
  std::string text = ReadFile(path);
  std::vector<std::string> lines;
  size_t at = 0;
  while (at < text.size()) {
    size_t end = text.find("\r\n", at);
    if (end == std::string::npos) end = text.size();
    lines.push_back(text.substr(at, end - at));
    at = end + 2;
  }
  return lines;
}

std::string Defaults(const std::string& name) { return ReadFile(TestData() + "/VSys/" + name); }

// The entries of a dump's log, as written: "[frame,index,true]" ...
std::string Log(const std::string& dump, const std::string& key) {
  size_t at = dump.find("\"" + key + "\":");
  if (at == std::string::npos) return "";
  size_t end = dump.find("\n", at);
  return dump.substr(at, end - at);
}

size_t Count(const std::string& text, const std::string& what) {
  size_t n = 0;
  for (size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++n;
  return n;
}

// A click at (x, y) once the previous line's moment has passed.
std::string Click(int x, int y, const std::string& when = "+2") {
  return when + " pointer " + std::to_string(x) + " " + std::to_string(y) + "\n+0 mouse click 1\n";
}

// Rows 1 to 20 filled but for the last column, painted at a poll of play: the
// piece in row 0 lands at once and the next one cannot enter.
std::string FullField() {
  std::string s;
  for (int row = 1; row <= 20; ++row) s += "+0 field " + std::to_string(row) + " ############.\n";
  return s;
}

// The menu reveal lasts one frame per y = 300, 295, ..., 0.
constexpr int kRevealFrames = 300 / 5 + 1;

struct FaultEnv {
  explicit FaultEnv(const std::string& spec) { setenv("VORREL_FAULT_POINT", spec.c_str(), 1); }
  ~FaultEnv() { unsetenv("VORREL_FAULT_POINT"); }
};

}  // namespace

TEST(FrontEnd, MenuControlsEdgesAndTheExitTabSavesNothing) {
  NEED_DATA();
  std::string dir = ScratchDir("menu");
  std::string script = "@menu mark\n+" + std::to_string(kRevealFrames) + " mark\n" +
                       Click(469, 200) + "+2 dump " + dir + "/edge.json\n" +          // Bonus's strict left edge
                       Click(470, 200) + "+2 dump " + dir + "/bonus.json\n" +         // inside: Bonus
                       Click(470, 200) + "+2 dump " + dir + "/again.json\n" +         // selected again: nothing
                       Click(560, 175) + "+2 dump " + dir + "/overlap.json\n" +       // Classic, then Bonus
                       Click(680, 250) + Click(738, 353) + "+2 dump " + dir + "/hard.json\n" +
                       Click(487, 325) + "+2 dump " + dir + "/easy.json\n" +
                       Click(620, 310) + Click(487, 310) + "+2 dump " + dir + "/level.json\n" +
                       Click(496, 413) + Click(730, 412) + "+2 dump " + dir + "/music.json\n" +
                       Click(520, 30) + "+2 shot " + dir + "/page1.png\n" + Click(570, 30) +
                       "+2 shot " + dir + "/page2.png\n" + Click(745, 30);
  GameRun run = RunGame(dir, script);
  ASSERT_EQ(run.status, 0) << run.stderrText;
  EXPECT_EQ(DumpValue(run.dumpText, "AppRunning"), "false");

  std::string edge = ReadFile(dir + "/edge.json"), bonus = ReadFile(dir + "/bonus.json"),
              again = ReadFile(dir + "/again.json"), overlap = ReadFile(dir + "/overlap.json");
  EXPECT_EQ(DumpValue(edge, "GameVariant"), "0");
  EXPECT_EQ(Count(Log(edge, "sounds"), ",102,"), 0u);
  EXPECT_EQ(DumpValue(edge, "ClickLatch"), "false") << "a click on nothing leaves the latch";
  EXPECT_EQ(DumpValue(bonus, "GameVariant"), "1");
  EXPECT_EQ(Count(Log(bonus, "sounds"), ",102,"), 1u);
  EXPECT_EQ(DumpValue(bonus, "SparkSlot"), "100") << "one burst of 100 sparks";
  EXPECT_EQ(Log(again, "sounds"), Log(bonus, "sounds")) << "the selected variant clicked again is silent";
  EXPECT_EQ(DumpValue(again, "SparkSlot"), "100");
  // Row 175 lies in Classic and in Bonus: both act on one click.
  EXPECT_EQ(DumpValue(overlap, "GameVariant"), "1");
  EXPECT_EQ(Count(Log(overlap, "sounds"), ",101,"), 1u);
  EXPECT_EQ(Count(Log(overlap, "sounds"), ",102,"), 2u);

  EXPECT_EQ(DumpValue(ReadFile(dir + "/hard.json"), "PlayType"), "2");
  EXPECT_EQ(DumpValue(ReadFile(dir + "/hard.json"), "Difficulty"), "2") << "inclusive corner (738, 353)";
  EXPECT_EQ(DumpValue(ReadFile(dir + "/easy.json"), "Difficulty"), "0") << "inclusive corner (487, 325)";
  EXPECT_EQ(DumpValue(ReadFile(dir + "/level.json"), "Level"), "5") << "x = 487 is outside the slider";
  std::string music = ReadFile(dir + "/music.json");
  EXPECT_EQ(DumpValue(music, "MusicOn"), "0");
  EXPECT_EQ(DumpValue(music, "MusicTrack"), "0") << "the arrows are inert with the music off";
  EXPECT_NE(Log(music, "music").find("\"StopMidi\""), std::string::npos);

  // Nothing was saved: the files are the shipped ones, line for line.
  EXPECT_EQ(FileLines(dir + "/home/VSys/maindata.inf"), FileLines(TestData() + "/VSys/maindata.inf"));
  EXPECT_EQ(ReadFile(dir + "/home/VSys/hs.inf"), Defaults("hs.inf"));
  EXPECT_EQ(Count(Log(run.dumpText, "files"), "\"write\""), 0u);
  EXPECT_TRUE(fs::exists(dir + "/page1.png") && fs::exists(dir + "/page2.png"));
}

// Start saves the settings; the game is lost at once with a score set in
// play; the name is typed on the keyboard; the final screen; the menu again.
TEST(FrontEnd, StartSavesAndANewHighScoreIsFiledInPlace) {
  NEED_DATA();
  std::string dir = ScratchDir("road");
  std::string script = "@menu mark\n+" + std::to_string(kRevealFrames) + " mark\n" + Click(680, 250) +
                       Click(620, 310) + Click(700, 490) + "@play mark\n+0p set Score 20000\n+0 set ScoreShown 20000\n" +
                       FullField() + "+0 set NextDropTime 0\n@gameover dump " + dir + "/over.json\n"
                       "@highscore dump " + dir + "/high.json\n"
                       "+300 key tap H\n+2 key tap I\n+2 key down LShift\n+1 key tap Apostrophe\n+1 key up LShift\n"
                       "+2 key tap Backspace\n+2 key tap J\n+2 dump " + dir + "/typed.json\n+2 key tap Return\n"
                       "@final mark\n+400 mouse click 1\n@menu mark\n+" + std::to_string(kRevealFrames) + " mark\n" +
                       Click(745, 30);
  GameRun run = RunGame(dir, script, {"--max-frames", "3000"});
  ASSERT_EQ(run.status, 0) << run.stderrText;

  EXPECT_EQ(FileLines(dir + "/home/VSys/maindata.inf"),
            (std::vector<std::string>{"0", "2", "5", "0", "0", "5", "1", "1", "1", "0"}));
  // Freeze 2000 ms (120 frames), unroll h = -300..420 by 2 (361 frames), hold 3000 ms (180 frames).
  const int unroll = (420 - (-300)) / 2 + 1;
  EXPECT_EQ(std::stoi(DumpValue(ReadFile(dir + "/high.json"), "frame")) -
                std::stoi(DumpValue(ReadFile(dir + "/over.json"), "frame")),
            120 + unroll + 180);
  EXPECT_EQ(DumpValue(ReadFile(dir + "/typed.json"), "EntryName"), "hj") << "the quote key types nothing";

  // Classic C: the new 20000 goes below the 26000 and above 15500; PEBBLE drops.
  std::vector<std::string> expected = FileLines(TestData() + "/VSys/hs.inf");
  ASSERT_EQ(expected.size(), 140u);
  const size_t block = 4 * 10;  // Classic A and B come first
  int rank = 0;
  for (int i = 3; i >= 0; --i)
    if (std::stoi(expected[block + 4 * i + 1]) > 20000) {
      rank = i + 1;
      break;
    }
  expected.erase(expected.begin() + block + 16, expected.begin() + block + 20);
  expected.insert(expected.begin() + block + 4 * rank, {"\"HJ\"", "20000", "0", "5"});
  EXPECT_EQ(FileLines(dir + "/home/VSys/hs.inf"), expected);
  EXPECT_EQ(DumpValue(run.dumpText, "screen"), "menu");
  EXPECT_EQ(DumpValue(run.dumpText, "AppRunning"), "false") << "left by the exit tab";
  EXPECT_FALSE(fs::exists(dir + "/home/VSys/hs.inf.tmp"));
}

// Keys tapped in the menu, which reads only the pointer, never reach the game
// the start button begins: not in the menu's polls, not at the very poll the
// start is clicked at. The game's first pass runs as if nothing was tapped.
TEST(FrontEnd, KeysTappedInTheMenuDoNotReachTheGame) {
  NEED_DATA();
  auto firstPass = [](const std::string& name, const std::string& taps) {
    std::string dir = ScratchDir(name);
    GameRun run = RunGame(dir,
                          "@menu mark\n+" + std::to_string(kRevealFrames) + " mark\n+2 mark\n" + taps +
                              "+2 pointer 700 490\n" + taps + "+0 mouse click 1\n@play mark\n+1p quit\n",
                          {"--max-frames", "2000"});
    EXPECT_EQ(run.status, 0) << run.stderrText;
    return run.dumpText;
  };
  const std::string quiet = firstPass("quiet", "");
  std::string taps;
  for (const char* key : {"Escape", "F10", "Left", "Right", "Down", "Up"}) taps += "+0 key tap " + std::string(key) + "\n";
  const std::string tapped = firstPass("tapped", taps);
  ASSERT_EQ(DumpValue(quiet, "screen"), "play");
  EXPECT_EQ(DumpValue(tapped, "screen"), "play") << "Escape would pause";
  EXPECT_EQ(DumpValue(tapped, "AppRunning"), "true") << "F10 would quit";
  EXPECT_EQ(DumpValue(tapped, "PauseRequest"), "0");
  for (const char* key : {"PieceX", "PieceY", "PieceRot", "SoftDropPoints", "NextDropTime"})
    EXPECT_EQ(DumpValue(tapped, key), DumpValue(quiet, key)) << key;
  EXPECT_TRUE(tapped == quiet) << "the taps changed nothing at all";
}

TEST(FrontEnd, DamagedFilesAreKeptAsideReadAsFarAsGoodAndWrittenWholeAtTheNextSave) {
  NEED_DATA();
  std::string dir = ScratchDir("damaged");
  WriteFile(dir + "/maindata.bad", "1\r\n2\r\nlots\r\n3.5\r\n");
  std::vector<std::string> hs = FileLines(TestData() + "/VSys/hs.inf");
  std::string truncated;
  for (int i = 0; i < 30; ++i) truncated += hs[i] + "\r\n";
  WriteFile(dir + "/hs.bad", truncated);
  std::string files = "0 file put VSys/maindata.inf " + dir + "/maindata.bad\n0 file put VSys/hs.inf " + dir + "/hs.bad\n";
  GameRun run = RunGame(dir, files + "@menu mark\n+" + std::to_string(kRevealFrames) + " mark\n" + Click(520, 30) +
                                 Click(745, 30));
  ASSERT_EQ(run.status, 0) << run.stderrText;
  EXPECT_EQ(DumpValue(run.dumpText, "PlayType"), "2");
  EXPECT_EQ(DumpValue(run.dumpText, "Level"), "0") << "text where a number belongs starts fresh";
  EXPECT_EQ(DumpValue(run.dumpText, "StartHeight"), "4") << "3.5 rounds half to even";
  EXPECT_EQ(DumpValue(run.dumpText, "Transparency"), "5");
  EXPECT_EQ(DumpValue(run.dumpText, "VoiceOn"), "1");
  EXPECT_EQ(ReadFile(dir + "/home/VSys/maindata.inf.damaged"), ReadFile(dir + "/maindata.bad"));
  EXPECT_EQ(ReadFile(dir + "/home/VSys/hs.inf.damaged"), truncated);
  EXPECT_EQ(Count(run.stderrText, "maindata.inf is damaged"), 1u) << run.stderrText;
  EXPECT_EQ(Count(run.stderrText, "hs.inf is damaged"), 1u) << run.stderrText;
  // Seven complete places survive; the eighth on is empty.
  EXPECT_NE(run.dumpText.find("[\"JUNO\",12000,0,3],[\"\",0,0,0]"), std::string::npos);
  EXPECT_EQ(ReadFile(dir + "/home/VSys/maindata.inf"), ReadFile(dir + "/maindata.bad")) << "the exit tab saves nothing";

  // The next start writes the whole file.
  std::string dir2 = ScratchDir("damaged2");
  run = RunGame(dir2, "0 file put VSys/maindata.inf " + dir + "/maindata.bad\n@menu mark\n+" +
                          std::to_string(kRevealFrames) + " mark\n" + Click(700, 490) + "@sound 142 quit\n");
  ASSERT_EQ(run.status, 0) << run.stderrText;
  EXPECT_EQ(FileLines(dir2 + "/home/VSys/maindata.inf"),
            (std::vector<std::string>{"1", "2", "0", "4", "0", "5", "1", "1", "1", "0"}));
}

// Every fault point of both files: a failed save keeps the old file and the
// game goes on (to the menu after the closing sweep, or after the final
// screen); a process ended there leaves the old file too, the new one beside it.
TEST(FrontEnd, AFailedSaveKeepsTheOldFileAndTheGameGoesOn) {
  NEED_DATA();
  struct Save {
    const char* file;
    std::string script;
    std::vector<std::string> args;
    std::string written;  // what the save writes
  };
  const Save saves[] = {
      {"maindata.inf",
       "@menu mark\n+" + std::to_string(kRevealFrames) + " mark\n" + Click(680, 250) + Click(700, 490) +
           "@sound 142 mark\n+3 quit\n",
       {},
       "0\r\n2\r\n0\r\n0\r\n0\r\n5\r\n1\r\n1\r\n1\r\n0\r\n"},
      {"hs.inf",
       "@play mark\n+0p set Score 20000\n" + FullField() +
           "+0 set NextDropTime 0\n@highscore mark\n+300 key tap H\n+2 key tap Return\n@final mark\n"
           "+400 mouse click 1\n@menu mark\n+3 quit\n",
       {"--game", "classic", "a", "0", "0", "0", "--max-frames", "3000"},
       "\"H\"\r\n20000\r\n"},
  };
  for (const Save& save : saves) {
    const std::string home = std::string("/home/VSys/") + save.file;
    for (const char* step : {"write", "sync", "rename"}) {
      for (const bool end : {false, true}) {
        const std::string point = std::string(save.file) + ":" + step + ":1" + (end ? ":end" : "");
        SCOPED_TRACE(point);
        std::string dir = ScratchDir(std::string(save.file) + "-" + step + (end ? "-end" : ""));
        FaultEnv fault(point);
        GameRun run = RunGame(dir, save.script, save.args);
        EXPECT_EQ(ReadFile(dir + home), Defaults(save.file)) << "the old file is kept";
        if (end) {
          EXPECT_NE(run.status, 0);
          const std::string tmp = ReadFile(dir + home + ".tmp");
          if (step == std::string("write"))
            EXPECT_EQ(tmp, "");
          else
            EXPECT_NE(tmp.find(save.written), std::string::npos) << tmp;
          continue;
        }
        ASSERT_EQ(run.status, 0) << run.stderrText;
        EXPECT_FALSE(fs::exists(dir + home + ".tmp"));
        EXPECT_EQ(Count(run.stderrText, std::string("could not save VSys/") + save.file), 1u) << run.stderrText;
        EXPECT_EQ(DumpValue(run.dumpText, "screen"), "menu") << "the game goes on";
      }
    }
  }
}
