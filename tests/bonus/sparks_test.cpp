// The spark rings of the falling bonus pieces, through the headless game.
#include <gtest/gtest.h>

#include <string>

#include "tests/game/dump_reading.h"
#include "tests/support/run_game.h"

using namespace linecheck;

// Sparks while a bomb and a line piece fall: the rings run over slots
// 1..99 and 1..49, never slot 0 nor the last; the counters are reset when the
// piece lands.
TEST(BonusSparks, RingsAndReset) {
  if (testsupport::TestData().empty()) GTEST_SKIP() << "no generated data folder";
  for (int kind : {12, 14}) {
    SCOPED_TRACE(kind);
    const std::string dir = testsupport::ScratchDir("sparks" + std::to_string(kind));
    const std::string table = kind == 12 ? "BombSparkTable" : "LineSparkTable";
    const int last = kind == 12 ? 100 : 50;
    std::string s = "0 game bonus a 0 0 0\n0 next " + std::to_string(kind) + "\n0 next 1\n@play mark\n" +
                    "+0p mark\n+40 dump " + dir + "/falling.json\n+0p set NextDropTime 0\n+0 set PieceY 380\n" +
                    "+1p dump " + dir + "/landed.json\n+0 quit\n";
    auto run = testsupport::RunGame(dir, s);
    ASSERT_EQ(run.status, 0) << run.stderrText;
    const std::string falling = testsupport::ReadFile(dir + "/falling.json");
    EXPECT_EQ(Number(falling, "SparkCount"), last) << "capped at the table's last slot";
    EXPECT_GE(Number(falling, "SparkNext"), 1);
    EXPECT_LT(Number(falling, "SparkNext"), last);
    auto records = Records(falling, table);
    ASSERT_EQ(records.size(), size_t(last + 1));
    for (int slot : {0, last})
      for (const std::string& v : records[slot]) EXPECT_EQ(v, "0") << "slot " << slot;
    for (int slot = 1; slot < last; ++slot) EXPECT_NE(records[slot][5], "0") << "slot " << slot;
    const std::string landed = testsupport::ReadFile(dir + "/landed.json");
    EXPECT_EQ(Number(landed, "SparkCount"), 0);
    EXPECT_EQ(Number(landed, "SparkNext"), 0);
  }
}
