// The game's window: the 800 x 600 picture scaled into it with black bars,
// full screen at the desktop's own resolution or in a resizable window. The
// scaling keeps the pixel art sharp at any size (see sharp_scale.h).
#pragma once
#include <cstdint>
#include <string>

struct SDL_Window;
struct SDL_Renderer;
struct SDL_Texture;

namespace platform {

class SdlWindow {
 public:
  ~SdlWindow() { Close(); }
  bool Open(bool windowed, std::string& error);
  void Close();
  bool IsOpen() const { return renderer_ != nullptr; }
  SDL_Window* Handle() const { return window_; }

  // Uploads the picture and presents it at once.
  void Show(const uint16_t* pixels);
  // Presents the last picture again (the window was uncovered or resized).
  void Refresh();

  bool IsFullscreen() const;
  void SetFullscreen(bool on);
  void ToggleFullscreen() { SetFullscreen(!IsFullscreen()); }

  // The window's pixels as presented, at the window's size, as a PNG.
  bool SaveShot(const std::string& path, std::string& error);

 private:
  void Draw();
  // The in-between picture at w x h, made again only when the size changes.
  bool PrepareTarget(int w, int h);

  SDL_Window* window_ = nullptr;
  SDL_Renderer* renderer_ = nullptr;
  SDL_Texture* texture_ = nullptr;
  SDL_Texture* target_ = nullptr;
  int targetW_ = 0, targetH_ = 0;
  int maxTextureW_ = 0, maxTextureH_ = 0;
  bool targetWarned_ = false;
  bool hasPicture_ = false;
};

}  // namespace platform
