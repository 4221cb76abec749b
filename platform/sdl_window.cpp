#include "platform/sdl_window.h"

#include <SDL2/SDL.h>
#include <SDL2/SDL_image.h>

#include <cstdio>

#include "platform/backend.h"
#include "platform/sharp_scale.h"

namespace platform {
namespace {

constexpr const char* kTitle = "Bonus Vorrel plus Wickory";

}  // namespace

bool SdlWindow::Open(bool windowed, std::string& error) {
  Uint32 flags = SDL_WINDOW_RESIZABLE;
  // The desktop's own mode, never a mode switch: the picture is scaled instead.
  if (!windowed) flags |= SDL_WINDOW_FULLSCREEN_DESKTOP;
  // Full screen starts at the desktop's size, so that even without a window
  // manager to enlarge it the window covers the screen.
  int w = kScreenWidth, h = kScreenHeight;
  SDL_DisplayMode desktop;
  if (!windowed && SDL_GetDesktopDisplayMode(0, &desktop) == 0 && desktop.w > 0 && desktop.h > 0) {
    w = desktop.w;
    h = desktop.h;
  }
  window_ = SDL_CreateWindow(kTitle, SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, w, h, flags);
  if (!window_) {
    error = std::string("cannot create the window: ") + SDL_GetError();
    return false;
  }
  SDL_SetWindowMinimumSize(window_, 320, 240);
  // No vsync: the pacing keeps 60 frames a second whatever the monitor's rate.
  renderer_ = SDL_CreateRenderer(window_, -1, SDL_RENDERER_ACCELERATED);
  if (!renderer_) {
    std::fprintf(stderr, "display: no accelerated renderer (%s); drawing in software\n", SDL_GetError());
    renderer_ = SDL_CreateRenderer(window_, -1, SDL_RENDERER_SOFTWARE);
  }
  if (!renderer_) {
    error = std::string("cannot create a renderer: ") + SDL_GetError();
    Close();
    return false;
  }
  texture_ = SDL_CreateTexture(renderer_, SDL_PIXELFORMAT_RGB565, SDL_TEXTUREACCESS_STREAMING,
                               kScreenWidth, kScreenHeight);
  if (!texture_) {
    error = std::string("cannot create the picture texture: ") + SDL_GetError();
    Close();
    return false;
  }
  SDL_RendererInfo info;
  if (SDL_GetRendererInfo(renderer_, &info) == 0) {
    maxTextureW_ = info.max_texture_width;
    maxTextureH_ = info.max_texture_height;
  }
  hasPicture_ = false;
  Refresh();
  return true;
}

void SdlWindow::Close() {
  if (target_) SDL_DestroyTexture(target_);
  if (texture_) SDL_DestroyTexture(texture_);
  if (renderer_) SDL_DestroyRenderer(renderer_);
  if (window_) SDL_DestroyWindow(window_);
  texture_ = nullptr;
  target_ = nullptr;
  targetW_ = targetH_ = 0;
  maxTextureW_ = maxTextureH_ = 0;
  renderer_ = nullptr;
  window_ = nullptr;
  hasPicture_ = false;
}

bool SdlWindow::PrepareTarget(int w, int h) {
  // Also a size that failed: not tried again every frame.
  if (targetW_ == w && targetH_ == h) return target_ != nullptr;
  if (target_) SDL_DestroyTexture(target_);
  target_ = nullptr;
  targetW_ = w;
  targetH_ = h;
  if (SDL_RenderTargetSupported(renderer_))
    target_ = SDL_CreateTexture(renderer_, SDL_PIXELFORMAT_ARGB8888, SDL_TEXTUREACCESS_TARGET, w, h);
  if (!target_) {
    if (!targetWarned_)
      std::fprintf(stderr, "display: cannot make a %d x %d texture to scale in (%s); scaling in one smooth step\n", w,
                   h, SDL_GetError());
    targetWarned_ = true;
    return false;
  }
  SDL_SetTextureBlendMode(target_, SDL_BLENDMODE_NONE);
  SDL_SetTextureScaleMode(target_, SDL_ScaleModeLinear);
  return true;
}

void SdlWindow::Draw() {
  int w = 0, h = 0;
  bool sized = SDL_GetRendererOutputSize(renderer_, &w, &h) == 0 && w > 0 && h > 0;
  SDL_Texture* source = nullptr;
  SDL_Rect dest{0, 0, 0, 0};
  if (hasPicture_ && sized) {
    SharpScale plan = PlanSharpScale(w, h, maxTextureW_, maxTextureH_);
    dest = SDL_Rect{plan.dest.x, plan.dest.y, plan.dest.w, plan.dest.h};
    source = texture_;
    // Linear filtering straight from 800 x 600 smears every pixel edge at
    // sizes that are not whole multiples: enlarge by whole pixels first and
    // let the filter only reduce.
    if (plan.TwoPasses() && PrepareTarget(plan.midWidth, plan.midHeight)) {
      SDL_SetTextureScaleMode(texture_, SDL_ScaleModeNearest);
      SDL_SetRenderTarget(renderer_, target_);
      SDL_RenderCopy(renderer_, texture_, nullptr, nullptr);
      SDL_SetRenderTarget(renderer_, nullptr);
      source = target_;
    } else {
      SDL_SetTextureScaleMode(texture_, plan.Exact() ? SDL_ScaleModeNearest : SDL_ScaleModeLinear);
    }
  }
  SDL_SetRenderDrawColor(renderer_, 0, 0, 0, 255);
  SDL_RenderClear(renderer_);
  if (source) SDL_RenderCopy(renderer_, source, nullptr, &dest);
}

void SdlWindow::Show(const uint16_t* pixels) {
  if (!renderer_) return;
  if (SDL_UpdateTexture(texture_, nullptr, pixels, kScreenWidth * 2) == 0) hasPicture_ = true;
  Draw();
  SDL_RenderPresent(renderer_);
}

void SdlWindow::Refresh() {
  if (!renderer_) return;
  Draw();
  SDL_RenderPresent(renderer_);
}

bool SdlWindow::IsFullscreen() const {
  return window_ && (SDL_GetWindowFlags(window_) & SDL_WINDOW_FULLSCREEN_DESKTOP) != 0;
}

void SdlWindow::SetFullscreen(bool on) {
  if (!window_ || on == IsFullscreen()) return;
  if (SDL_SetWindowFullscreen(window_, on ? SDL_WINDOW_FULLSCREEN_DESKTOP : 0) != 0) {
    std::fprintf(stderr, "display: cannot %s full screen: %s\n", on ? "enter" : "leave", SDL_GetError());
    return;
  }
  if (!on) {
    int w = 0, h = 0;
    SDL_GetWindowSize(window_, &w, &h);
    // A window left from a desktop-sized start comes back at the game's own size.
    SDL_DisplayMode desktop;
    if (SDL_GetDesktopDisplayMode(0, &desktop) == 0 && w >= desktop.w && h >= desktop.h) {
      SDL_SetWindowSize(window_, kScreenWidth, kScreenHeight);
      SDL_SetWindowPosition(window_, SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED);
    }
  }
  Refresh();
}

bool SdlWindow::SaveShot(const std::string& path, std::string& error) {
  if (!renderer_) {
    error = "no window";
    return false;
  }
  int w = 0, h = 0;
  if (SDL_GetRendererOutputSize(renderer_, &w, &h) != 0 || w <= 0 || h <= 0) {
    error = std::string("cannot read the window's size: ") + SDL_GetError();
    return false;
  }
  SDL_Surface* shot = SDL_CreateRGBSurfaceWithFormat(0, w, h, 24, SDL_PIXELFORMAT_RGB24);
  if (!shot) {
    error = std::string("cannot make the shot: ") + SDL_GetError();
    return false;
  }
  // What was presented is gone from the back buffer once presented: draw the
  // same again and read it before it is shown.
  Draw();
  bool ok = SDL_RenderReadPixels(renderer_, nullptr, SDL_PIXELFORMAT_RGB24, shot->pixels, shot->pitch) == 0;
  if (!ok) error = std::string("cannot read the window's pixels: ") + SDL_GetError();
  SDL_RenderPresent(renderer_);
  // Written whole or not at all.
  const std::string part = path + ".part";
  if (ok && (IMG_SavePNG(shot, part.c_str()) != 0 || std::rename(part.c_str(), path.c_str()) != 0)) {
    error = "cannot write " + path + ": " + IMG_GetError();
    std::remove(part.c_str());
    ok = false;
  }
  SDL_FreeSurface(shot);
  return ok;
}

}  // namespace platform
