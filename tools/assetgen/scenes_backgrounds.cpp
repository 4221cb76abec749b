// scene_background VARIANT LEVEL: the 400 x 300 play-screen background.
#include <string>

#include "tools/assetgen/scenes_bg.h"

namespace {

struct Area {
  double x, y, w, h;
};

}  // namespace

ASSETGEN_GENERATOR(scene_background) {
  if (entry.args.size() != 2) assetgen::Fail(entry, "expects VARIANT LEVEL");
  const std::string& variant = entry.args[0];
  int level = std::stoi(entry.args[1]);
  if (level < 0 || level > 20) assetgen::Fail(entry, "level out of 0..20");
  assetgen::Canvas c(scenes::kBgW, scenes::kBgH);
  // Where the field sits, in picture pixels (the game darkens it further).
  Area field;
  if (variant == "classic") {
    scenes::ClassicBackground(c, level);
    field = {90, 71, 130, 212};
  } else if (variant == "bonus") {
    scenes::BonusBackground(c, level);
    field = {90, 71, 130, 211};
  } else if (variant == "wickory") {
    scenes::WickoryBackground(c, level);
    field = {88, 67, 134, 219};
  } else {
    assetgen::Fail(entry, "unknown variant " + variant);
  }
  const double feather = 10;
  scenes::Calm(c, field.x - feather / 2, field.y - feather / 2, field.w + feather, field.h + feather, 0.9, 0.62,
               feather, 0.45);
  // The variant and play-type titles are painted at the top right.
  scenes::Calm(c, 246, 10, 156, 84, 0.45, 0.8, 22);
  assetgen::WriteBmp(ctx, entry, assetgen::Quantise(c, assetgen::Dither::ErrorDiffusion));
}
