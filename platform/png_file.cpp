#include "platform/png_file.h"

#include <SDL.h>
#include <SDL_image.h>

#include <cstdio>
#include <vector>

namespace platform {

bool WritePng565(const std::string& path, int width, int height, const uint16_t* pixels, std::string& error) {
  std::vector<uint8_t> rgb(static_cast<size_t>(width) * height * 3);
  for (size_t i = 0; i < static_cast<size_t>(width) * height; ++i) {
    uint16_t p = pixels[i];
    int r5 = p >> 11, g6 = (p >> 5) & 63, b5 = p & 31;
    rgb[3 * i] = static_cast<uint8_t>((r5 << 3) | (r5 >> 2));
    rgb[3 * i + 1] = static_cast<uint8_t>((g6 << 2) | (g6 >> 4));
    rgb[3 * i + 2] = static_cast<uint8_t>((b5 << 3) | (b5 >> 2));
  }
  SDL_Surface* s = SDL_CreateRGBSurfaceWithFormatFrom(rgb.data(), width, height, 24, width * 3, SDL_PIXELFORMAT_RGB24);
  if (!s) {
    error = std::string("PNG surface: ") + SDL_GetError();
    return false;
  }
  std::string tmp = path + ".part";
  bool ok = IMG_SavePNG(s, tmp.c_str()) == 0;
  SDL_FreeSurface(s);
  if (!ok || std::rename(tmp.c_str(), path.c_str()) != 0) {
    error = "cannot write " + path + (ok ? "" : std::string(": ") + IMG_GetError());
    std::remove(tmp.c_str());
    return false;
  }
  return true;
}

}  // namespace platform
