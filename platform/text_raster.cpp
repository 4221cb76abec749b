#include "platform/text_raster.h"

#include <SDL.h>
#include <SDL_ttf.h>

#include <cstdlib>

namespace platform {

namespace {

// About the height of a classic 8-9 pt interface font on a 96 dpi screen.
constexpr int kFontPixels = 12;

TTF_Font* OpenFont(std::string& error) {
  static TTF_Font* font = nullptr;
  static bool tried = false;
  static std::string lastError;
  if (tried) {
    error = lastError;
    return font;
  }
  tried = true;
  if (TTF_WasInit() == 0 && TTF_Init() != 0) {
    lastError = std::string("TTF_Init: ") + TTF_GetError();
    error = lastError;
    return nullptr;
  }
  const char* candidates[] = {
      std::getenv("VORREL_FONT"),
      "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf",
      "/usr/share/fonts/dejavu/DejaVuSans.ttf",
      "/usr/local/share/fonts/DejaVuSans.ttf",
  };
  for (const char* path : candidates) {
    if (!path) continue;
    font = TTF_OpenFont(path, kFontPixels);
    if (font) {
      TTF_SetFontHinting(font, TTF_HINTING_MONO);
      return font;
    }
  }
  lastError = "cannot open the DejaVu Sans font (package fonts-dejavu-core)";
  error = lastError;
  return nullptr;
}

}  // namespace

bool RasteriseText(const std::string& text, TextMask& out, std::string& error) {
  TTF_Font* font = OpenFont(error);
  if (!font) return false;
  SDL_Color white{255, 255, 255, 255};
  // Crisp, not blended: text drawn again in the background colour erases it
  // exactly, as the screens that overwrite a message rely on.
  SDL_Surface* s = TTF_RenderUTF8_Solid(font, text.c_str(), white);
  if (!s) {
    out = TextMask{};  // nothing to draw (an empty or unrenderable text)
    return true;
  }
  SDL_Surface* argb = SDL_ConvertSurfaceFormat(s, SDL_PIXELFORMAT_ARGB8888, 0);
  SDL_FreeSurface(s);
  if (!argb) {
    error = std::string("text surface: ") + SDL_GetError();
    return false;
  }
  out.width = argb->w;
  out.height = argb->h;
  out.coverage.resize(static_cast<size_t>(out.width) * out.height);
  for (int y = 0; y < argb->h; ++y) {
    const Uint32* row = reinterpret_cast<const Uint32*>(static_cast<const Uint8*>(argb->pixels) + y * argb->pitch);
    for (int x = 0; x < argb->w; ++x) out.coverage[static_cast<size_t>(y) * out.width + x] = row[x] >> 24;
  }
  SDL_FreeSurface(argb);
  return true;
}

}  // namespace platform
