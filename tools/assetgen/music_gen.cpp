// music/<title>.mid from assets/music/<score>: args are the track's index in the
// game's title table and the score file. The score's title must be the file's
// name, because the game opens the file by the title it holds for that index
// (the data tests hold the manifest against the game's own table).
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "tools/assetgen/music_arrange.h"
#include "tools/assetgen/registry.h"

ASSETGEN_GENERATOR(music) {
  if (entry.args.size() != 2) assetgen::Fail(entry, "expected INDEX SCORE");
  std::string file = ctx.assetsDir + "/music/" + entry.args[1];
  std::ifstream in(file, std::ios::binary);
  if (!in) assetgen::Fail(entry, "cannot read " + file);
  std::stringstream text;
  text << in.rdbuf();
  music::Arrangement a;
  try {
    music::Score score = music::ParseScore(text.str(), entry.args[1]);
    // The file's name is the title the game looks it up by.
    if (entry.path != "music/" + score.title + ".mid") assetgen::Fail(entry, entry.args[1] + " is titled " + score.title);
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
    std::fprintf(stderr, "music: %-18s %6.1f s\n", entry.path.c_str(), a.seconds);
}
