#include "display/bitmap_text.h"

namespace display {

TextState Text;

std::string MakeGlyphOrder() { return std::string("abcdefghijklmnopqrstuvwxyz0123456789&!?/+-:") + '"' + "'. "; }

int GlyphIndex(char c) {
  size_t p = Text.GlyphOrder.find(c);
  return p == std::string::npos ? -1 : static_cast<int>(p);
}

}  // namespace display
