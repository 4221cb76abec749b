// libFuzzer target for the bitmap reader: any bytes either decode into an
// image whose size matches its pixels or are refused with a reason.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "platform/bmp_file.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  bmp::Image565 image;
  std::string error;
  if (bmp::Decode(data, size, image, error)) {
    if (image.width <= 0 || image.height <= 0 ||
        image.pixels.size() != static_cast<size_t>(image.width) * image.height)
      std::abort();
  } else if (error.empty()) {
    std::abort();
  }
  return 0;
}
