// Surface semantics: keyed and opaque copies, stretching, clipping, rounding,
// the drawing primitives' end points, fills, filters and the present modes.
#include <gtest/gtest.h>

#include "display/surface.h"
#include "core/errors.h"
#include "platform/backend.h"

using namespace display;

namespace {

Surface Make(int w, int h, uint16_t fill = 0) {
  Surface s;
  CreateBlankSurface(s, w, h, 0);
  FillSurface(s, Display.WholeRect, fill);
  return s;
}

// A 4 x 4 source: pixel (x, y) = 1 + x + 4y, with (1, 1) black (the key).
Surface Numbered() {
  Surface s = Make(4, 4);
  for (int y = 0; y < 4; ++y)
    for (int x = 0; x < 4; ++x) s.Row(y)[x] = static_cast<uint16_t>(1 + x + 4 * y);
  s.Row(1)[1] = 0;
  return s;
}

uint16_t At(const Surface& s, int x, int y) { return s.Row(y)[x]; }

}  // namespace

TEST(DisplaySurface, KeyedOpaqueAndStretchedCopies) {
  Surface src = Numbered();
  Surface keyed = Make(6, 6, 500);
  BltKeyed(keyed, 1, 1, 4, 4, src, 0, 0, 4, 4);
  EXPECT_EQ(At(keyed, 1, 1), 1);
  EXPECT_EQ(At(keyed, 2, 2), 500) << "black source pixels are skipped by the keyed copy";
  EXPECT_EQ(At(keyed, 4, 4), 16);
  EXPECT_EQ(At(keyed, 0, 0), 500);
  EXPECT_EQ(At(keyed, 5, 5), 500);

  Surface opaque = Make(6, 6, 500);
  BltOpaque(opaque, 1, 1, 4, 4, src, 0, 0, 4, 4);
  EXPECT_EQ(At(opaque, 2, 2), 0) << "the opaque copy copies black too";

  // Double size: each source pixel covers 2 x 2.
  Surface big = Make(8, 8, 7);
  BltOpaque(big, 0, 0, 8, 8, src, 0, 0, 4, 4);
  EXPECT_EQ(At(big, 0, 0), 1);
  EXPECT_EQ(At(big, 1, 1), 1);
  EXPECT_EQ(At(big, 2, 0), 2);
  EXPECT_EQ(At(big, 7, 7), 16);
  // Half size samples every other pixel.
  Surface small = Make(2, 2, 7);
  BltOpaque(small, 0, 0, 2, 2, src, 0, 0, 4, 4);
  EXPECT_EQ(At(small, 0, 0), 1);
  EXPECT_EQ(At(small, 1, 0), 3);
  EXPECT_EQ(At(small, 1, 1), 11);
}

TEST(DisplaySurface, ClippingOfDestinationAndSource) {
  Surface src = Numbered();
  // Destination clipper: only (2..5) x (2..5) of the surface may change.
  Surface d = Make(8, 8, 9);
  d.HasClipper = true;
  d.ClipRect = {2, 2, 6, 6};
  BltOpaque(d, 0, 0, 4, 4, src, 0, 0, 4, 4);
  EXPECT_EQ(At(d, 1, 1), 9);
  EXPECT_EQ(At(d, 2, 2), 11);
  EXPECT_EQ(At(d, 3, 3), 16);
  EXPECT_EQ(At(d, 2, 1), 9);

  // Off the destination's edge without a clipper: the rest still lands.
  Surface e = Make(4, 4, 9);
  BltOpaque(e, -2, 3, 4, 4, src, 0, 0, 4, 4);
  EXPECT_EQ(At(e, 0, 3), 3);
  EXPECT_EQ(At(e, 1, 3), 4);
  EXPECT_EQ(At(e, 2, 3), 9);

  // A source rectangle partly outside its surface: the destination shrinks in step.
  Surface f = Make(6, 6, 9);
  BltOpaque(f, 0, 0, 4, 4, src, 2, -1, 4, 4);
  EXPECT_EQ(At(f, 0, 0), 9) << "source row -1 does not exist";
  EXPECT_EQ(At(f, 0, 1), 3);
  EXPECT_EQ(At(f, 1, 1), 4);
  EXPECT_EQ(At(f, 2, 1), 9) << "source column 4 does not exist";
  EXPECT_EQ(At(f, 1, 3), 12);

  // Wholly outside: nothing, and no failure.
  Surface g = Make(4, 4, 9);
  BltKeyed(g, 0, 0, 4, 4, src, 10, 10, 4, 4);
  BltKeyed(g, 0, 0, 4, 4, src, 0, 0, 0, 4);
  for (uint16_t p : g.Pixels) EXPECT_EQ(p, 9);
}

TEST(DisplaySurface, SelfOverlappingCopyReadsTheSourceFirst) {
  Surface s = Make(6, 1);
  for (int x = 0; x < 6; ++x) s.Row(0)[x] = static_cast<uint16_t>(x + 1);
  BltOpaque(s, 1, 0, 5, 1, s, 0, 0, 5, 1);  // shift right by one
  std::vector<uint16_t> want{1, 1, 2, 3, 4, 5};
  EXPECT_EQ(s.Pixels, want);
  Surface t = Make(6, 1);
  for (int x = 0; x < 6; ++x) t.Row(0)[x] = static_cast<uint16_t>(x + 1);
  BltOpaque(t, 0, 0, 5, 1, t, 1, 0, 5, 1);  // shift left by one
  std::vector<uint16_t> want2{2, 3, 4, 5, 6, 6};
  EXPECT_EQ(t.Pixels, want2);
}

TEST(DisplaySurface, CoordinatesRoundHalvesToEven) {
  EXPECT_EQ(RoundHalfEven(2.5), 2);
  EXPECT_EQ(RoundHalfEven(3.5), 4);
  EXPECT_EQ(RoundHalfEven(-0.5), 0);
  EXPECT_EQ(RoundHalfEven(-1.5), -2);
  EXPECT_EQ(RoundHalfEven(2.4999), 2);
  Surface src = Make(1, 1, 77);
  Surface d = Make(5, 1);
  BltOpaque(d, 2.5, 0, 1, 1, src, 0, 0, 1, 1);  // lands at 2
  BltOpaque(d, 3.5, 0, 1, 1, src, 0, 0, 1, 1);  // lands at 4
  std::vector<uint16_t> want{0, 0, 77, 0, 77};
  EXPECT_EQ(d.Pixels, want);
  EXPECT_EQ(Display.DestRect.Left, 4);
  EXPECT_THROW(RoundHalfEven(1e300), core::GameFault);
}

TEST(DisplaySurface, BoxesLinesAndCirclesLeaveOutTheirEnds) {
  Surface s = Make(12, 12);
  SetForeColour(s, 255, 255, 255);
  SetFillColour(s, 255, 0, 0);
  DrawBox(s, 1, 1, 4, 3);  // covers x 1..3, y 1..2
  const uint16_t white = 0xFFFF, red = Rgb565(255, 0, 0);
  EXPECT_EQ(At(s, 1, 1), white);
  EXPECT_EQ(At(s, 3, 2), white);
  EXPECT_EQ(At(s, 4, 1), 0);
  EXPECT_EQ(At(s, 1, 3), 0);
  DrawBox(s, 5, 5, 10, 10);
  EXPECT_EQ(At(s, 7, 7), red) << "fill style 0 fills the inside";
  SetFillStyle(s, 1);
  FillSurface(s, Display.WholeRect, 0);
  DrawBox(s, 5, 5, 10, 10);
  EXPECT_EQ(At(s, 7, 7), 0) << "fill style 1 draws the outline only";
  EXPECT_EQ(At(s, 9, 9), white);

  FillSurface(s, Display.WholeRect, 0);
  DrawLine(s, 0, 0, 5, 0);
  EXPECT_EQ(At(s, 4, 0), white);
  EXPECT_EQ(At(s, 5, 0), 0) << "the end point is left out";
  DrawLine(s, 0, 2, 0, 2);
  EXPECT_EQ(At(s, 0, 2), 0) << "a line to its own start draws nothing";

  FillSurface(s, Display.WholeRect, 0);
  SetFillStyle(s, 0);
  DrawCircle(s, 6, 6, 4);
  EXPECT_EQ(At(s, 6, 6), red);
  EXPECT_NE(At(s, 6, 2), 0);
  EXPECT_EQ(At(s, 0, 0), 0);
}

TEST(DisplaySurface, FiltersAndPixels) {
  Surface s = Make(4, 2, 0xFFFF);
  s.Row(0)[3] = 0;
  FilterRect(s, 0, 0, 4, 1, 0.5);
  EXPECT_EQ(At(s, 0, 0), 0x7BF0) << "the masked, unshifted channel is rounded";
  EXPECT_EQ(At(s, 3, 0), 0) << "black stays black";
  EXPECT_EQ(At(s, 0, 1), 0xFFFF) << "outside the rectangle";
  FilterRect(s, 0, 1, 4, 1, 1.0);
  EXPECT_EQ(At(s, 1, 1), 0xFFFF);
  FilterRect(s, 0, 1, 0, 1, 0.0);
  EXPECT_EQ(At(s, 1, 1), 0xFFFF) << "an empty rectangle changes nothing";
  FilterRect(s, 0, 1, 2, 1, 0.0);
  EXPECT_EQ(At(s, 1, 1), 0);
  EXPECT_EQ(At(s, 2, 1), 0xFFFF);

  ReadPixel(s, 3, 0);
  EXPECT_EQ(Display.PixelValue, 0);
  WritePixel(s, 2.5, 0);  // rounds to 2
  ReadPixel(s, 2, 0);
  EXPECT_EQ(Display.PixelValue, 60000);
  ReadPixel(s, 4, 0);
  EXPECT_EQ(Display.PixelValue, 0) << "outside the surface reads 0";
  ReadPixel(s, 1, 1);
  int32_t before = Display.PixelValue;
  for (double x : {-1.0, 4.0, -0.6}) WritePixel(s, x, 1);
  WritePixel(s, 1, -1);
  WritePixel(s, 1, 2);
  int marked = 0;
  for (int y = 0; y < 2; ++y)
    for (int x = 0; x < 4; ++x) marked += At(s, x, y) == 60000;
  EXPECT_EQ(marked, 1) << "a write outside lands nowhere";
  ReadPixel(s, 1, 1);
  EXPECT_EQ(Display.PixelValue, before);
}

TEST(DisplaySurface, FillsHonourTheClipperAndWholeRect) {
  Surface s = Make(4, 4, 3);
  FillSurface(s, Rect{1, 1, 3, 3}, 8);
  EXPECT_EQ(At(s, 1, 1), 8);
  EXPECT_EQ(At(s, 3, 3), 3);
  s.HasClipper = true;
  s.ClipRect = {0, 0, 2, 4};
  FillSurface(s, Display.WholeRect, 5);
  EXPECT_EQ(At(s, 1, 3), 5);
  EXPECT_EQ(At(s, 2, 0), 3);
  Surface never;
  EXPECT_THROW(FillSurface(never, Display.WholeRect, 1), core::GameFault);
}
