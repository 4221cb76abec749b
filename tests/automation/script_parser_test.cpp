#include <gtest/gtest.h>

#include <filesystem>

#include "core/key_names.h"
#include "automation/automation.h"
#include "automation/script.h"
#include "core/errors.h"

namespace {

using automation::Moment;
using automation::Op;
using automation::ParseScript;

std::string ErrorOf(const std::string& text) {
  try {
    ParseScript(text, "t.vs");
  } catch (const core::UsageError& e) {
    return e.what();
  }
  return "";
}

TEST(ScriptParser, EveryMomentForm) {
  auto lines = ParseScript(
      "# a comment line\n"
      "\n"
      "0 mark\n"
      "  +5 mark   # trailing comment\n"
      "+3p mark\n"
      "20 mark\n"
      "@play mark\n"
      "@nojoystick mark\n"
      "@sound 104 mark\n"
      "@music menutheme mark\r\n",
      "t.vs");
  ASSERT_EQ(lines.size(), 8u);
  EXPECT_EQ(lines[0].lineNumber, 3);
  EXPECT_EQ(lines[0].when.kind, Moment::Kind::Frames);
  EXPECT_EQ(lines[1].when.kind, Moment::Kind::PlusFrames);
  EXPECT_EQ(lines[1].when.count, 5);
  EXPECT_EQ(lines[2].when.kind, Moment::Kind::PlusPolls);
  EXPECT_EQ(lines[2].when.count, 3);
  EXPECT_EQ(lines[3].when.count, 20);
  EXPECT_EQ(lines[4].when.kind, Moment::Kind::Screen);
  EXPECT_EQ(lines[4].when.name, "play");
  EXPECT_EQ(lines[5].when.name, "nojoystick");
  EXPECT_EQ(lines[6].when.kind, Moment::Kind::Sound);
  EXPECT_EQ(lines[6].when.count, 104);
  EXPECT_EQ(lines[7].when.kind, Moment::Kind::Music);
  EXPECT_EQ(lines[7].when.name, "menutheme");
  EXPECT_EQ(lines[7].commandText, "mark");
}

TEST(ScriptParser, EveryCommand) {
  auto lines = ParseScript(
      "0 key down Left\n0 key up 7\n0 key tap RShift\n"
      "0 mouse move -12 30\n0 mouse down 1\n0 mouse up 2\n0 mouse click 3\n"
      "0 pointer 780 0\n"
      "0 joy plug\n0 joy unplug\n0 joy axis y -1000\n0 joy raw x 32767\n0 joy down 32\n0 joy up 1\n"
      "0 mark\n0 close\n0 quit\n"
      "0 game wickory c 20 9 2\n"
      "0 set HighScores[3][1][0] \"Zed \\\"Z\\\"\"\n0 set StartHeight -2.5e1\n0 set AppRunning false\n"
      "0 field 20 #....01234.##\n"
      "0 next 13 2\n0 next 4\n"
      "0 file remove VSys\\hs.inf\n"
      "0 dump \"out dir/a.json\"\n0 shot a.png\n0 shot b.png PieceSprites[12][0][0]\n",
      "t.vs");
  ASSERT_EQ(lines.size(), 28u);
  EXPECT_EQ(lines[0].command.op, Op::KeyDown);
  EXPECT_EQ(lines[0].command.a, 203);
  EXPECT_EQ(lines[1].command.a, 8);
  EXPECT_EQ(lines[2].command.op, Op::KeyTap);
  EXPECT_EQ(lines[2].command.a, 54);
  EXPECT_EQ(lines[3].command.a, -12);
  EXPECT_EQ(lines[3].command.b, 30);
  EXPECT_EQ(lines[6].command.op, Op::MouseClick);
  EXPECT_EQ(lines[7].command.a, 780);
  EXPECT_EQ(lines[10].command.op, Op::JoyAxis);
  EXPECT_EQ(lines[10].command.a, 1);
  EXPECT_EQ(lines[10].command.b, -1000);
  EXPECT_EQ(lines[11].command.op, Op::JoyRaw);
  EXPECT_EQ(lines[12].command.a, 32);
  const auto& game = lines[17].command;
  EXPECT_EQ(game.op, Op::Game);
  EXPECT_EQ(game.a, 2);
  EXPECT_EQ(game.b, 2);
  EXPECT_EQ(game.c, 20);
  EXPECT_EQ(game.d, 9);
  EXPECT_EQ(game.e, 2);
  const auto& set = lines[18].command;
  EXPECT_EQ(set.text1, "HighScores");
  EXPECT_EQ(set.indexes, (std::vector<long long>{3, 1, 0}));
  EXPECT_EQ(set.value.kind, vars::Literal::Kind::Text);
  EXPECT_EQ(set.value.text, "Zed \"Z\"");
  EXPECT_EQ(lines[19].command.value.kind, vars::Literal::Kind::Decimal);
  EXPECT_DOUBLE_EQ(lines[19].command.value.decimal, -25.0);
  EXPECT_EQ(lines[20].command.value.kind, vars::Literal::Kind::Boolean);
  EXPECT_EQ(lines[21].command.text1, "#....01234.##");  // # here is a tile, not a comment
  EXPECT_TRUE(lines[22].command.hasFuse);
  EXPECT_EQ(lines[22].command.b, 2);
  EXPECT_FALSE(lines[23].command.hasFuse);
  EXPECT_EQ(lines[24].command.text1, "VSys/hs.inf");
  EXPECT_EQ(lines[25].command.text1, "out dir/a.json");
  EXPECT_EQ(lines[27].command.text2, "PieceSprites[12][0][0]");
  EXPECT_TRUE(automation::RunsAtMoment(Op::Next));
  EXPECT_FALSE(automation::RunsAtMoment(Op::Set));
}

TEST(ScriptParser, BadLinesNameTheirFileAndLine) {
  EXPECT_EQ(ErrorOf("0 mark\n\n0 key down Tab\n"), "t.vs:3: no key is called \"Tab\"");
  EXPECT_EQ(ErrorOf("10 mark\n5 mark\n"), "t.vs:2: moment 5 comes before the previous line's moment (frame 10)");
  EXPECT_EQ(ErrorOf("5 mark\n+10 mark\n12 mark\n"),
            "t.vs:3: moment 12 comes before the previous line's moment (frame 15)");
  EXPECT_EQ(ErrorOf("@lobby mark\n"), "t.vs:1: no screen is called \"lobby\"");
  EXPECT_EQ(ErrorOf("soon mark\n"), "t.vs:1: a moment must be N, +N, +Np or @..., not \"soon\"");
  EXPECT_EQ(ErrorOf("+-3 mark\n"), "t.vs:1: a moment must be N, +N, +Np or @..., not \"+-3\"");
  EXPECT_EQ(ErrorOf("0\n"), "t.vs:1: a moment needs a command after it");
  EXPECT_EQ(ErrorOf("0 jump\n"), "t.vs:1: no command is called \"jump\"");
  EXPECT_EQ(ErrorOf("0 quit now\n"), "t.vs:1: unexpected \"now\" after the command");
  EXPECT_EQ(ErrorOf("0 pointer 781 0\n"), "t.vs:1: X must be a whole number from 0 to 780, not \"781\"");
  EXPECT_EQ(ErrorOf("0 joy axis z 5\n"), "t.vs:1: the axis must be one of x, y, not \"z\"");
  EXPECT_EQ(ErrorOf("0 joy raw x 40000\n"),
            "t.vs:1: the raw axis value must be a whole number from -32768 to 32767, not \"40000\"");
  EXPECT_EQ(ErrorOf("0 game arcade a 0 0 0\n"),
            "t.vs:1: the variant must be one of classic, bonus, wickory, not \"arcade\"");
  EXPECT_EQ(ErrorOf("0 game bonus a 21 0 0\n"), "t.vs:1: LEVEL must be a whole number from 0 to 20, not \"21\"");
  EXPECT_EQ(ErrorOf("0 game bonus a 0 1.5 0\n"), "t.vs:1: HEIGHT must be a whole number from 0 to 9, not \"1.5\"");
  EXPECT_EQ(ErrorOf("0 game bonus a 0 0\n"), "t.vs:1: missing DIFFICULTY");
  EXPECT_EQ(ErrorOf("0 set Level\n"), "t.vs:1: missing the value for Level");
  EXPECT_EQ(ErrorOf("0 set Level[x] 1\n"),
            "t.vs:1: \"Level[x]\" must be NAME or NAME[I]...[K] with whole-number indexes");
  EXPECT_EQ(ErrorOf("0 set Name Bob\n"),
            "t.vs:1: \"Bob\" is not a value: write a number, true, false or a \"double-quoted string\"");
  EXPECT_EQ(ErrorOf("0 set Name \"Bob\n"), "t.vs:1: a quoted string has no closing quote");
  EXPECT_EQ(ErrorOf("0 field 21 .............\n"), "t.vs:1: ROW must be a whole number from 0 to 20, not \"21\"");
  EXPECT_EQ(ErrorOf("0 field 3 ....\n"), "t.vs:1: CELLS must be 13 of . 0 1 2 3 4 # r, not \"....\"");
  EXPECT_EQ(ErrorOf("0 next 16\n"), "t.vs:1: KIND must be a whole number from 0 to 15, not \"16\"");
  EXPECT_EQ(ErrorOf("0 next 3 3\n"), "t.vs:1: FUSE must be a whole number from 0 to 2, not \"3\"");
  // A home file's name never reaches outside the home folder, whichever way the slashes lean.
  EXPECT_EQ(ErrorOf("0 file put ../../etc/passwd x\n"),
            "t.vs:1: \"../../etc/passwd\" leaves the home folder: name a home file");
  EXPECT_EQ(ErrorOf("0 file remove VSys\\..\\settings.ini\n"),
            "t.vs:1: \"VSys\\..\\settings.ini\" leaves the home folder: name a home file");
  EXPECT_EQ(ErrorOf("0 file remove /VSys/hs.inf\n"), "t.vs:1: \"/VSys/hs.inf\" is an absolute path: name a home file");
  EXPECT_EQ(ErrorOf("0 file remove \\VSys\\hs.inf\n"),
            "t.vs:1: \"\\VSys\\hs.inf\" is an absolute path: name a home file");
  EXPECT_EQ(ErrorOf("0 file remove VSys/other.inf\n"),
            "t.vs:1: the home files are VSys/hs.inf, VSys/maindata.inf and settings.ini, not \"VSys/other.inf\"");
  EXPECT_EQ(ErrorOf("0 file put settings.ini /no/such/file\n"), "t.vs:1: no file to copy at \"/no/such/file\"");
  EXPECT_EQ(ErrorOf("0 dump\n"), "t.vs:1: missing the dump's file name");

  // A script file that cannot be read, a folder included, is bad usage.
  const std::string folder = std::filesystem::temp_directory_path().string();
  for (const std::string& path : {folder, folder + "/no-such-script.vs"}) {
    try {
      automation::ReadScriptFile(path);
      ADD_FAILURE() << path << " read as a script";
    } catch (const core::UsageError& e) {
      EXPECT_NE(std::string(e.what()).find(path), std::string::npos) << e.what();
    }
  }
}

TEST(ScriptParser, KeyNamesRoundTrip) {
  int named = 0;
  for (int code = 0; code < 256; ++code) {
    if (const char* name = core::KeyName(code)) {
      ++named;
      EXPECT_EQ(core::KeyCode(name), code) << name;
    }
  }
  EXPECT_EQ(named, 54);
  EXPECT_EQ(core::KeyCode("Escape"), 1);
  EXPECT_EQ(core::KeyCode("0"), 11);
  EXPECT_EQ(core::KeyCode("Q"), 16);
  EXPECT_EQ(core::KeyCode("M"), 50);
  EXPECT_EQ(core::KeyCode("F10"), 68);
  EXPECT_EQ(core::KeyCode("Down"), 208);
  EXPECT_EQ(core::KeyCode("escape"), -1);
}

}  // namespace
