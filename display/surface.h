// Off-screen surfaces, rectangle copies and the frame on screen.
// Every surface holds 16-bit RGB565 pixels and carries colour key 0.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace display {

// left, top, right, bottom; right and bottom exclusive.
struct Rect {
  int32_t Left = 0, Top = 0, Right = 0, Bottom = 0;
  bool Empty() const { return Right <= Left || Bottom <= Top; }
};

struct Surface {
  int Width = 0;
  int Height = 0;
  std::vector<uint16_t> Pixels;
  bool HasColourKey = true;
  uint16_t ColourKey = 0;
  bool HasClipper = false;  // the clipper's one rectangle
  Rect ClipRect;
  uint32_t ForeColour = 0;         // 24-bit RGB, text and outlines
  uint32_t FillColour = 0;         // 24-bit RGB, box and circle interiors
  int FillStyle = 0;               // 0 solid, 1 transparent
  std::string Name;                // how dumps and screenshots call it

  uint16_t* Row(int y) { return Pixels.data() + static_cast<size_t>(y) * Width; }
  const uint16_t* Row(int y) const { return Pixels.data() + static_cast<size_t>(y) * Width; }
  bool Exists() const { return Width > 0; }
};

// The display layer's own state.
struct DisplayState {
  Surface PrimarySurface;  // the frame on screen; drawing on it shows at once
  Surface BackBuffer;      // every frame is composed here
  Surface Backdrop;        // restored into the back buffer by PresentFrame(0)
  Rect SrcRect, DestRect;  // registers of the last blit or lock
  Rect ScreenRect;         // (0, 0)-(800, 600)
  Rect WholeRect;          // never written: all zero means the whole surface
  int32_t PixelValue = 0;  // the last ReadPixel
  bool FrontDirty = false; // something was drawn onto PrimarySurface since it was shown
};
extern DisplayState Display;

// Rounds as the blit and pixel calls do: to the nearest integer, halves to even.
int32_t RoundHalfEven(double v);

// Opens the window (or the headless screen) and makes the flip chain.
// Returns false with the failing call when no picture can be shown.
bool InitDisplay(std::string& failedCall);
void ShutdownDirectX();

// path: the game's relative path with backslashes ("\graphics\bombs.bmp").
// Throws core::GameFault naming the file when it cannot be read.
void LoadSurface(Surface& surface, const std::string& path, int width, int height, int colourKey = 0);
void CreateBlankSurface(Surface& surface, int width, int height, int colourKey = 0);

void BltKeyed(Surface& dest, double destLeft, double destTop, double destWidth, double destHeight,
              const Surface& src, double srcLeft, double srcTop, double srcWidth, double srcHeight);
void BltOpaque(Surface& dest, double destLeft, double destTop, double destWidth, double destHeight,
               const Surface& src, double srcLeft, double srcTop, double srcWidth, double srcHeight);

// Colour fill; an all-zero rectangle (WholeRect) means the whole surface.
void FillSurface(Surface& surface, const Rect& rect, uint16_t value);

void SetForeColour(Surface& surface, int r, int g, int b);
void SetFillColour(Surface& surface, int r, int g, int b);
void SetFillStyle(Surface& surface, int style);
void DrawText(Surface& surface, double x, double y, const std::string& text);
// A line leaves out its end point; a box covers x1..x2-1, y1..y2-1.
void DrawLine(Surface& surface, double x1, double y1, double x2, double y2);
void DrawBox(Surface& surface, double x1, double y1, double x2, double y2);
void DrawCircle(Surface& surface, double x, double y, double radius);

// Shows the back buffer and prepares the next one: mode <= 0 restores
// Backdrop, mode >= 1 fills with pixel value mode - 1.
void PresentFrame(int mode);

// Pixel access and filters.
void ReadPixel(Surface& surface, double x, double y);  // result in Display.PixelValue
void WritePixel(Surface& surface, double x, double y); // writes the marker 60000
void FilterRect(Surface& surface, double left, double top, double width, double height, double factor);
inline constexpr uint16_t kBurntMarker = 60000;

// Surfaces by the names dumps and screenshots use ("Backdrop", "FieldSurfaces[0]",
// "PieceSprites[12][0][0]"). Registered by their owners at start-up.
void NameSurface(Surface& surface, const std::string& name);
Surface* FindSurface(const std::string& name);

inline uint16_t Rgb565(int r, int g, int b) {
  return static_cast<uint16_t>(((r >> 3) << 11) | ((g >> 2) << 5) | (b >> 3));
}

}  // namespace display
