#include <gtest/gtest.h>

#include <array>
#include <string>

#include "core/json_writer.h"
#include "core/table.h"
#include "core/variables.h"

namespace {

struct HighScoreEntry {
  std::string Name;
  int32_t Score = 0;
  int16_t Lines = 0;
  int16_t Level = 0;
};

struct Spark {
  double X = 0, Y = 0;
  float Life = 0;
  bool Lit = false;
  static constexpr auto VarFields() { return std::tuple(&Spark::X, &Spark::Y, &Spark::Life, &Spark::Lit); }
};

}  // namespace

VARS_RECORD(HighScoreEntry, &HighScoreEntry::Name, &HighScoreEntry::Score, &HighScoreEntry::Lines,
            &HighScoreEntry::Level);

namespace {

std::string Json(const std::string& name) {
  core::JsonWriter w;
  vars::WriteJson(w, *vars::Find(name));
  return w.Text();
}

vars::Literal Int(long long v) {
  vars::Literal l;
  l.integer = v;
  return l;
}
vars::Literal Text(const std::string& s) {
  vars::Literal l;
  l.kind = vars::Literal::Kind::Text;
  l.text = s;
  return l;
}
vars::Literal Real(double d) {
  vars::Literal l;
  l.kind = vars::Literal::Kind::Decimal;
  l.decimal = d;
  return l;
}

class VariablesTest : public ::testing::Test {
 protected:
  void TearDown() override {
    for (const char* n : {"TestScores", "TestDelay", "TestSparks", "TestGrid", "TestFlag", "TestTitle"})
      vars::Withdraw(n);
  }
};

TEST_F(VariablesTest, NestedTablesAndRecordsDumpAndSet) {
  // Seven games of five entries, the game's own 1-based entries.
  static core::Table<core::Table<HighScoreEntry, 1, 5>, 0, 6> scores;
  static core::Table<int16_t, 0, 3> delay;
  static std::array<Spark, 2> sparks;
  static core::Table<std::array<uint32_t, 2>, 1, 2> grid;
  scores[2][1] = {"ann", 1200, 12, 3};
  delay[0] = 1500;
  delay[3] = -7;
  sparks[1] = {1.5, -0.25, 0.1f, true};
  vars::Expose("TestScores", scores);
  vars::Expose("TestDelay", delay);
  vars::Expose("TestSparks", sparks);
  vars::Expose("TestGrid", grid);

  EXPECT_EQ(Json("TestDelay"), "[1500,0,0,-7]");
  EXPECT_EQ(Json("TestSparks"), "[[0,0,0,false],[1.5,-0.25,0.1,true]]");
  EXPECT_EQ(Json("TestGrid"), "[null,[0,0],[0,0]]");
  std::string table = Json("TestScores");
  EXPECT_EQ(table.substr(0, 61), "[[null,[\"\",0,0,0],[\"\",0,0,0],[\"\",0,0,0],[\"\",0,0,0],[\"\",0,0,0]");
  EXPECT_NE(table.find("[null,[\"ann\",1200,12,3],"), std::string::npos);

  std::string error;
  EXPECT_TRUE(vars::Assign("TestScores", {6, 5, 0}, Text("zed"), error)) << error;
  EXPECT_TRUE(vars::Assign("TestScores", {6, 5, 1}, Int(99999), error)) << error;
  EXPECT_EQ(scores[6][5].Name, "zed");
  EXPECT_EQ(scores[6][5].Score, 99999);
  EXPECT_TRUE(vars::Assign("TestSparks", {0, 2}, Int(3), error)) << error;
  EXPECT_FLOAT_EQ(sparks[0].Life, 3.0f);
  EXPECT_TRUE(vars::Assign("TestGrid", {2, 1}, Int(4294967295LL), error)) << error;
  EXPECT_EQ(grid[2][1], 4294967295u);
}

TEST_F(VariablesTest, BadSetsSayWhy) {
  static core::Table<core::Table<HighScoreEntry, 1, 5>, 0, 6> scores;
  static core::Table<int16_t, 0, 3> delay;
  static bool flag = false;
  static std::string title = "x";
  vars::Expose("TestScores", scores);
  vars::Expose("TestDelay", delay);
  vars::Expose("TestFlag", flag);
  vars::Expose("TestTitle", title);
  std::string error;

  EXPECT_FALSE(vars::Assign("NoSuchThing", {}, Int(1), error));
  EXPECT_EQ(error, "no variable is called NoSuchThing");
  EXPECT_FALSE(vars::Assign("TestScores", {2, 0, 1}, Int(1), error));
  EXPECT_EQ(error, "index 0 is outside TestScores[2], which runs 1..5");
  EXPECT_FALSE(vars::Assign("TestScores", {7, 1, 1}, Int(1), error));
  EXPECT_EQ(error, "index 7 is outside TestScores, which runs 0..6");
  EXPECT_FALSE(vars::Assign("TestScores", {1, 1, 4}, Int(1), error));
  EXPECT_EQ(error, "index 4 is outside the record TestScores[1][1], whose fields run 0..3");
  EXPECT_FALSE(vars::Assign("TestScores", {1, 1}, Int(1), error));
  EXPECT_EQ(error, "TestScores[1][1] is a record: give an index");
  EXPECT_FALSE(vars::Assign("TestDelay", {1, 1}, Int(1), error));
  EXPECT_EQ(error, "TestDelay[1] is not a table");
  EXPECT_FALSE(vars::Assign("TestDelay", {1}, Int(40000), error));
  EXPECT_EQ(error, "TestDelay[1] takes a whole number from -32768 to 32767, not 40000");
  EXPECT_FALSE(vars::Assign("TestDelay", {1}, Real(1.5), error));
  EXPECT_FALSE(vars::Assign("TestFlag", {}, Int(1), error));
  EXPECT_EQ(error, "TestFlag takes true or false, not 1");
  EXPECT_FALSE(vars::Assign("TestTitle", {}, Int(1), error));
  EXPECT_EQ(error, "TestTitle takes a double-quoted string, not 1");
  // Nothing was changed by the refused lines.
  EXPECT_EQ(delay[1], 0);
  EXPECT_EQ(title, "x");
}

TEST(JsonWriter, ShapeAndEscapes) {
  core::JsonWriter w;
  w.BeginObject();
  w.Key("frame");
  w.Int(3);
  w.Key("text");
  w.String("a\"b\\c\n\x01");
  w.Key("list");
  w.BeginArray();
  w.Real(0.1);
  w.Real(1e300 * 1e300);
  w.Bool(true);
  w.Null();
  w.BeginArray();
  w.EndArray();
  w.EndArray();
  w.Key("empty");
  w.BeginObject();
  w.EndObject();
  w.EndObject();
  EXPECT_EQ(w.Text(),
            "{\n  \"frame\":3,\n  \"text\":\"a\\\"b\\\\c\\n\\u0001\",\n  \"list\":[0.1,null,true,null,[]],\n"
            "  \"empty\":{}\n}\n");
}

}  // namespace
