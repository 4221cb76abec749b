// Making surfaces: from bitmap files (scaled to the asked size) or blank.
#include <map>

#include "display/surface.h"
#include "core/errors.h"
#include "platform/paths.h"
#include "platform/bmp_file.h"

namespace display {

namespace {
std::map<std::string, Surface*>& Names() {
  static std::map<std::string, Surface*> names;
  return names;
}

void CheckSize(int width, int height, const std::string& what) {
  if (width <= 0 || height <= 0 || width > 8192 || height > 8192)
    core::Fail(what + ": bad surface size " + std::to_string(width) + " x " + std::to_string(height));
}
}  // namespace

void CreateBlankSurface(Surface& surface, int width, int height, int colourKey) {
  CheckSize(width, height, "CreateBlankSurface");
  surface.Width = width;
  surface.Height = height;
  surface.Pixels.assign(static_cast<size_t>(width) * height, 0);
  surface.HasColourKey = colourKey != 9999;
  surface.ColourKey = static_cast<uint16_t>(colourKey == 9999 ? 0 : colourKey);
  surface.HasClipper = false;
  surface.ForeColour = 0;
  surface.FillColour = 0;
  surface.FillStyle = 0;
}

void LoadSurface(Surface& surface, const std::string& path, int width, int height, int colourKey) {
  CheckSize(width, height, path);
  std::string file = platform::DataPath(path);
  bmp::Image565 img;
  std::string error;
  if (!bmp::Read(file, img, error)) core::Fail("LoadSurface " + error);
  if (img.width != width || img.height != height) img = bmp::Scale(img, width, height);
  CreateBlankSurface(surface, width, height, colourKey);
  surface.Pixels = std::move(img.pixels);
}

void NameSurface(Surface& surface, const std::string& name) {
  surface.Name = name;
  Names()[name] = &surface;
}

Surface* FindSurface(const std::string& name) {
  auto it = Names().find(name);
  return it == Names().end() ? nullptr : it->second;
}

}  // namespace display
