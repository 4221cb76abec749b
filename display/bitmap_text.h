// Text drawn from bitmap glyphs: characters through GlyphOrder, numbers by
// digit value. Every glyph is a small surface cut at load time, drawn keyed.
#pragma once
#include <cstdint>
#include <string>

#include "display/surface.h"
#include "core/table.h"

namespace display {

struct TextState {
  // Position p (from 1) of a character selects glyph p - 1; glyph 47 is the
  // high-score keyboard's end key and has no character.
  std::string GlyphOrder;
  core::Table<Surface, 0, 49> BigGlyphs;    // 48: the sheet, 49: the keyboard's selection frame
  core::Table<Surface, 0, 48> SmallGlyphs;  // 48: the sheet
  core::Table<Surface, 0, 10> StatDigits;   // 10: the sheet
  core::Table<Surface, 0, 10> ScoreDigits;  // 10: the sheet
  core::Table<Surface, 0, 10> BigDigits;    // 10: the Bomb's eraser sign
  Surface BigDigitSheet;
};
extern TextState Text;

std::string MakeGlyphOrder();

// Glyph index of a character, or -1 when GlyphOrder does not hold it.
int GlyphIndex(char c);

// Character text: each character found in GlyphOrder is copied keyed at the
// pen in size x size, then the pen moves by advance; others are skipped
// without a gap.
template <class GlyphTable>
void DrawGlyphText(Surface& dest, double x, double y, const std::string& text, const GlyphTable& glyphs,
                   double advance, double size) {
  for (char c : text) {
    int g = GlyphIndex(c);
    if (g < 0) continue;
    const Surface& glyph = glyphs[g];
    BltKeyed(dest, x, y, size, size, glyph, 0, 0, glyph.Width, glyph.Height);
    x += advance;
  }
}

// Number text with a digit set. Left to right from the pen, or right to left
// with the pen on the last digit.
template <class DigitTable>
void DrawNumberText(Surface& dest, double x, double y, int64_t number, const DigitTable& digits, double advance,
                    bool rightToLeft) {
  std::string s = std::to_string(number < 0 ? -number : number);
  if (rightToLeft) {
    for (auto it = s.rbegin(); it != s.rend(); ++it) {
      const Surface& d = digits[*it - '0'];
      BltKeyed(dest, x, y, d.Width, d.Height, d, 0, 0, d.Width, d.Height);
      x -= advance;
    }
  } else {
    for (char c : s) {
      const Surface& d = digits[c - '0'];
      BltKeyed(dest, x, y, d.Width, d.Height, d, 0, 0, d.Width, d.Height);
      x += advance;
    }
  }
}

}  // namespace display
