// The player's files as text: what survives damage, the exact format, and
// where a result ranks.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "frontend/high_scores.h"
#include "frontend/vsys_files.h"

using namespace frontend;

namespace {

std::vector<std::string> CrLfLines(const std::string& text) {
  std::vector<std::string> lines;
  size_t at = 0;
  while (at < text.size()) {
    size_t end = text.find("\r\n", at);
    if (end == std::string::npos) {
      lines.push_back(text.substr(at) + "<no CR LF>");
      break;
    }
    lines.push_back(text.substr(at, end - at));
    at = end + 2;
  }
  return lines;
}

HighScoreTable Sample() {
  HighScoreTable t;
  int n = 0;
  for (int v = 0; v <= 2; ++v)
    for (int ty = 0; ty <= 2; ++ty)
      for (int r = 0; r <= 4; ++r) t[v][ty][r] = HighScoreEntry{"P" + std::to_string(n), 1000 - r, int16_t(r), int16_t(++n % 20)};
  return t;
}

}  // namespace

TEST(SettingsFile, DamagedLinesStartFreshAndNumbersAreRoundedAndClamped) {
  core::MenuSettings s;
  EXPECT_EQ(ParseSettings("1\r\n2\r\n3\r\n4\r\n1\r\n6\r\n0\r\n1\r\n0\r\n17\r\n", s), 0);
  EXPECT_EQ(SettingsText(s), "1\r\n2\r\n3\r\n4\r\n1\r\n6\r\n0\r\n1\r\n0\r\n17\r\n");

  // Text where a number belongs, halves to even, out of range, a short file.
  int bad = ParseSettings("1\nabc\n2.5\n7.6\n-4\n12\n1e0\n", s);
  EXPECT_EQ(bad, 1 + 3);  // line 2 and the three missing lines
  EXPECT_EQ(s.GameVariant, 1);
  EXPECT_EQ(s.PlayType, 0);
  EXPECT_EQ(s.Level, 2);
  EXPECT_EQ(s.StartHeight, 8);
  EXPECT_EQ(s.Difficulty, 0);
  EXPECT_EQ(s.Transparency, 9);
  EXPECT_EQ(s.MusicOn, 1);
  EXPECT_EQ(s.SoundOn, 1);
  EXPECT_EQ(s.VoiceOn, 1);
  EXPECT_EQ(s.MusicTrack, 0);

  EXPECT_EQ(ParseSettings("", s), 10);
  EXPECT_EQ(SettingsText(s), SettingsText(StartSettings()));
  EXPECT_EQ(SettingsText(StartSettings()), "0\r\n0\r\n0\r\n0\r\n0\r\n5\r\n1\r\n1\r\n1\r\n0\r\n");
  // Not numbers: hex, words after digits, infinity.
  EXPECT_EQ(ParseSettings("0x1\n1 2\ninf\n", s), 10);
}

TEST(HighScoreFile, ExactFormatAndDamage) {
  HighScoreTable t = Sample();
  std::string text = HighScoresText(t);
  std::vector<std::string> lines = CrLfLines(text);
  ASSERT_EQ(lines.size(), 140u);
  EXPECT_EQ(lines[0], "\"P0\"");
  EXPECT_EQ(lines[1], "1000");
  EXPECT_EQ(lines[4 * 5], "\"P5\"") << "Classic B follows Classic A";
  EXPECT_EQ(lines[4 * 15], "\"P15\"") << "Bonus A follows Classic C";
  EXPECT_EQ(lines[120], "\"P30\"") << "Wickory comes last";

  HighScoreTable back;
  EXPECT_EQ(ParseHighScores(text, back), 35);
  EXPECT_EQ(HighScoresText(back), text);

  // Truncated inside the eighth record: seven complete places survive.
  std::string cut;
  for (int i = 0; i < 30; ++i) cut += lines[i] + "\r\n";
  EXPECT_EQ(ParseHighScores(cut, back), 7);
  EXPECT_EQ(back[0][1][1].Name, "P6");
  EXPECT_EQ(back[0][1][2].Name, "");
  EXPECT_EQ(back[0][1][2].Score, 0);
  EXPECT_EQ(back[2][0][0].Name, "");

  // Text in a number, and a quote inside a name, end the good part there.
  std::vector<std::string> broken = lines;
  broken[4 * 3 + 1] = "lots";
  std::string joined;
  for (auto& l : broken) joined += l + "\r\n";
  EXPECT_EQ(ParseHighScores(joined, back), 3);
  broken = lines;
  broken[4 * 2] = "\"A\"B\"";
  joined.clear();
  for (auto& l : broken) joined += l + "\r\n";
  EXPECT_EQ(ParseHighScores(joined, back), 2);

  // A name the file cannot hold is written so that the file keeps its format.
  t[0][0][0].Name = "Q\"T";
  lines = CrLfLines(HighScoresText(t));
  EXPECT_EQ(lines[0], "\"Q'T\"");
  EXPECT_EQ(ParseHighScores(HighScoresText(t), back), 35);
}

TEST(HighScoreTable, TiesArePlacedAboveAndTheFifthDrops) {
  HighScoreTable t;
  const int scores[] = {500, 400, 400, 200, 100};
  for (int r = 0; r < 5; ++r) t[1][2][r] = HighScoreEntry{"R" + std::to_string(r), scores[r], 0, 0};
  EXPECT_EQ(RankFor(t, 1, 2, 600), 0);
  EXPECT_EQ(RankFor(t, 1, 2, 500), 0) << "equal to the best: above it";
  EXPECT_EQ(RankFor(t, 1, 2, 400), 1) << "above both equal scores";
  EXPECT_EQ(RankFor(t, 1, 2, 101), 4);
  InsertHighScore(t, 1, 2, RankFor(t, 1, 2, 400), HighScoreEntry{"NEW", 400, 3, 4});
  EXPECT_EQ(t[1][2][0].Name, "R0");
  EXPECT_EQ(t[1][2][1].Name, "NEW");
  EXPECT_EQ(t[1][2][2].Name, "R1");
  EXPECT_EQ(t[1][2][3].Name, "R2");
  EXPECT_EQ(t[1][2][4].Name, "R3");
  EXPECT_EQ(t[1][1][0].Name, "") << "other tables untouched";
}
