// Bitmap files: exact 565 round trips, the other depths the loader accepts,
// and damaged files refused with a reason instead of a crash.
#include "platform/bmp_file.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>

namespace {

void Put32(std::vector<uint8_t>& b, size_t at, uint32_t v) {
  for (int i = 0; i < 4; ++i) b[at + i] = static_cast<uint8_t>(v >> (8 * i));
}

// A bottom-up 24-bit file of w x h, pixel (x, y) = (x*40, y*40, 200).
std::vector<uint8_t> Make24(int w, int h) {
  size_t stride = (w * 3 + 3) / 4 * 4;
  std::vector<uint8_t> b(54 + stride * h, 0);
  b[0] = 'B';
  b[1] = 'M';
  Put32(b, 2, static_cast<uint32_t>(b.size()));
  Put32(b, 10, 54);
  Put32(b, 14, 40);
  Put32(b, 18, static_cast<uint32_t>(w));
  Put32(b, 22, static_cast<uint32_t>(h));
  b[26] = 1;
  b[28] = 24;
  for (int y = 0; y < h; ++y)
    for (int x = 0; x < w; ++x) {
      uint8_t* p = &b[54 + stride * (h - 1 - y) + 3 * x];
      p[0] = 200;
      p[1] = static_cast<uint8_t>(y * 40);
      p[2] = static_cast<uint8_t>(x * 40);
    }
  return b;
}

}  // namespace

TEST(BmpFile, RoundTripsAndDepths) {
  bmp::Image565 img;
  img.width = 3;
  img.height = 2;
  img.pixels = {0x0000, 0xEA60, 0xFFFF, 0x0821, 0xF904, 0x1234};
  std::string dir = std::filesystem::temp_directory_path() / "vorrel-bmp-test";
  std::filesystem::create_directories(dir);
  std::string error;
  ASSERT_TRUE(bmp::Write565(dir + "/a.bmp", img, error)) << error;
  EXPECT_FALSE(std::filesystem::exists(dir + "/a.bmp.part"));
  bmp::Image565 back;
  ASSERT_TRUE(bmp::Read(dir + "/a.bmp", back, error)) << error;
  EXPECT_EQ(back.width, 3);
  EXPECT_EQ(back.pixels, img.pixels) << "16-bit codes come back exactly";

  // 24-bit: the top bits of each channel.
  std::vector<uint8_t> b = Make24(3, 2);
  ASSERT_TRUE(bmp::Decode(b.data(), b.size(), back, error)) << error;
  EXPECT_EQ(back.at(2, 1), bmp::Pack565(80, 40, 200));
  EXPECT_EQ(back.at(0, 0), bmp::Pack565(0, 0, 200));
  // Widening 565 to 8 bits and packing again is the identity.
  for (uint32_t v : {0u, 1u, 0x0821u, 0xEA60u, 0xFFFFu}) {
    int r, g, bl;
    bmp::Unpack565(static_cast<uint16_t>(v), r, g, bl);
    EXPECT_EQ(bmp::Pack565(r, g, bl), v);
  }
  // Top-down files (negative height) read the right way up.
  Put32(b, 22, static_cast<uint32_t>(-2));
  ASSERT_TRUE(bmp::Decode(b.data(), b.size(), back, error));
  EXPECT_EQ(back.at(2, 0), bmp::Pack565(80, 40, 200));

  bmp::Image565 half = bmp::Scale(img, 2, 1);
  EXPECT_EQ(half.pixels, (std::vector<uint16_t>{0x0000, 0xEA60}));
  std::filesystem::remove_all(dir);
}

TEST(BmpFile, DamagedFilesAreRefused) {
  bmp::Image565 out;
  std::string error;
  std::vector<uint8_t> good = Make24(4, 4);
  std::vector<uint8_t> cut(good.begin(), good.end() - 10);
  EXPECT_FALSE(bmp::Decode(cut.data(), cut.size(), out, error));
  EXPECT_NE(error.find("truncated"), std::string::npos) << error;

  std::vector<uint8_t> huge = good;
  Put32(huge, 18, 100000);
  EXPECT_FALSE(bmp::Decode(huge.data(), huge.size(), out, error));
  std::vector<uint8_t> minHeight = good;
  Put32(minHeight, 22, 0x80000000u);
  EXPECT_FALSE(bmp::Decode(minHeight.data(), minHeight.size(), out, error));
  std::vector<uint8_t> rle = good;
  Put32(rle, 30, 1);
  EXPECT_FALSE(bmp::Decode(rle.data(), rle.size(), out, error));
  // Header fields that would wrap 32-bit arithmetic, and pixel data that
  // starts inside the headers: refused, never read as pixels.
  std::vector<uint8_t> wrapHeader = good;
  Put32(wrapHeader, 14, 0xFFFFFFF5u);
  EXPECT_FALSE(bmp::Decode(wrapHeader.data(), wrapHeader.size(), out, error));
  for (uint32_t offset : {0u, 14u, 53u, 0xFFFFFFFFu, 0xFFFFFFF0u}) {
    std::vector<uint8_t> b = good;
    Put32(b, 10, offset);
    EXPECT_FALSE(bmp::Decode(b.data(), b.size(), out, error)) << "pixel data at " << offset;
  }
  // An 8-bit file of 2 x 1: 54 bytes of headers, 4 colours, 4 bytes of pixels.
  std::vector<uint8_t> paletted(54 + 16 + 4, 0);
  std::copy(good.begin(), good.begin() + 54, paletted.begin());
  Put32(paletted, 10, 70);
  Put32(paletted, 18, 2);
  Put32(paletted, 22, 1);
  paletted[28] = 8;
  Put32(paletted, 46, 4);
  paletted[54 + 4 * 3 + 2] = 0xFF;  // colour 3 is red
  paletted[70] = 3;
  ASSERT_TRUE(bmp::Decode(paletted.data(), paletted.size(), out, error)) << error;
  EXPECT_EQ(out.at(0, 0), bmp::Pack565(255, 0, 0));
  EXPECT_EQ(out.at(1, 0), 0);
  Put32(paletted, 10, 66);  // the pixels would start inside the palette
  EXPECT_FALSE(bmp::Decode(paletted.data(), paletted.size(), out, error));
  Put32(paletted, 10, 70);
  Put32(paletted, 46, 0x40000000u);  // 4 x that colour count wraps to 0
  EXPECT_FALSE(bmp::Decode(paletted.data(), paletted.size(), out, error));
  // A 16-bit bitfields file keeps its masks after a 40-byte header.
  bmp::Image565 one;
  one.width = one.height = 1;
  one.pixels = {0xF81F};
  std::string path = (std::filesystem::temp_directory_path() / "vorrel-bmp-masks.bmp").string();
  ASSERT_TRUE(bmp::Write565(path, one, error)) << error;
  std::vector<uint8_t> masked(std::filesystem::file_size(path));
  FILE* f = std::fopen(path.c_str(), "rb");
  ASSERT_EQ(std::fread(masked.data(), 1, masked.size(), f), masked.size());
  std::fclose(f);
  std::filesystem::remove(path);
  ASSERT_TRUE(bmp::Decode(masked.data(), masked.size(), out, error)) << error;
  EXPECT_EQ(out.at(0, 0), 0xF81F);
  Put32(masked, 10, 60);  // the pixels would start on the masks
  EXPECT_FALSE(bmp::Decode(masked.data(), masked.size(), out, error));

  const char* text = "not a bitmap at all, just words";
  EXPECT_FALSE(bmp::Decode(reinterpret_cast<const uint8_t*>(text), 32, out, error));
  EXPECT_FALSE(bmp::Read("/nonexistent/x.bmp", out, error));
  EXPECT_NE(error.find("/nonexistent/x.bmp"), std::string::npos);
}
