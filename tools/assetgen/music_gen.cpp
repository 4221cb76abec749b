// music/<title>.mid from assets/music/<score>: args are the track's index in the
// game's title table and the score file. The index and the title must agree,
// because the game opens the file by the title it holds for that index.
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>

#include "tools/assetgen/music_arrange.h"
#include "tools/assetgen/registry.h"

namespace {

const std::map<int, std::string>& Titles() {
  static const std::map<int, std::string> t = {
      {1, "Amber Sky"},        {2, "Brass Lantern"},    {3, "Cobalt Drift"},    {4, "Copper Kettle"},
      {5, "Dawn Patrol"},      {6, "Ember Waltz"},      {7, "Falling Stars"},   {8, "Glass Harbour"},
      {9, "Granite Steps"},    {10, "Harvest Moon"},    {11, "Iron Bridge"},    {12, "Jade Garden"},
      {13, "Juniper Lane"},    {14, "Kite Festival"},   {15, "Lantern Parade"}, {16, "Marble Hall"},
      {17, "Midnight Rail"},   {18, "Neon Tide"},       {19, "Northern Lights"}, {20, "Old Mill Reel"},
      {21, "Paper Boats"},     {22, "Quartz Canyon"},   {23, "Rain on Tin"},    {24, "Red Balloon"},
      {25, "Saffron Road"},    {26, "Silver Fjord"},    {27, "Tin Soldiers"},   {28, "Twilight Market"},
      {29, "Velvet Night"},    {30, "Willow Creek"},    {34, "Liftoff"},        {35, "TypeBWin"},
      {36, "Works"},           {37, "Champions"},       {38, "Intro"},          {39, "Over"},
      {40, "Vorrel Theme"}};
  return t;
}

}  // namespace

ASSETGEN_GENERATOR(music) {
  if (entry.args.size() != 2) assetgen::Fail(entry, "expected INDEX SCORE");
  int index = std::atoi(entry.args[0].c_str());
  auto title = Titles().find(index);
  if (title == Titles().end()) assetgen::Fail(entry, "no track " + entry.args[0]);
  if (entry.path != "music/" + title->second + ".mid") assetgen::Fail(entry, "track " + entry.args[0] + " is " + title->second);
  std::string file = ctx.assetsDir + "/music/" + entry.args[1];
  std::ifstream in(file, std::ios::binary);
  if (!in) assetgen::Fail(entry, "cannot read " + file);
  std::stringstream text;
  text << in.rdbuf();
  music::Arrangement a;
  try {
    music::Score score = music::ParseScore(text.str(), entry.args[1]);
    if (score.title != title->second) assetgen::Fail(entry, entry.args[1] + " is titled " + score.title);
    a = music::Arrange(score);
  } catch (const std::runtime_error& e) {
    if (std::string(e.what()).find(entry.source) == 0) throw;
    assetgen::Fail(entry, e.what());
  }
  auto bytes = music::EncodeMidiFile(music::kPpq, a.tracks, a.endTick);
  std::ofstream out(ctx.Out(entry.path), std::ios::binary);
  out.write(reinterpret_cast<const char*>(bytes.data()), std::streamsize(bytes.size()));
  if (!out) assetgen::Fail(entry, "cannot write");
  if (std::getenv("VORREL_MUSIC_VERBOSE"))
    std::fprintf(stderr, "music: %-18s %6.1f s\n", title->second.c_str(), a.seconds);
}
