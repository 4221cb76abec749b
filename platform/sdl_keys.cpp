#include "platform/sdl_keys.h"

#include <cstring>
#include <iterator>

namespace platform {
namespace {

struct ScanEntry {
  SDL_Scancode scancode;
  uint8_t code;
};

// Keys that name a place on the board.
constexpr ScanEntry kPositional[] = {
    {SDL_SCANCODE_ESCAPE, 1},      {SDL_SCANCODE_BACKSPACE, 14},  {SDL_SCANCODE_TAB, 15},
    {SDL_SCANCODE_RETURN, 28},     {SDL_SCANCODE_LCTRL, 29},      {SDL_SCANCODE_LSHIFT, 42},
    {SDL_SCANCODE_RSHIFT, 54},     {SDL_SCANCODE_KP_MULTIPLY, 55}, {SDL_SCANCODE_LALT, 56},
    {SDL_SCANCODE_SPACE, 57},      {SDL_SCANCODE_CAPSLOCK, 58},   {SDL_SCANCODE_F1, 59},
    {SDL_SCANCODE_F2, 60},         {SDL_SCANCODE_F3, 61},         {SDL_SCANCODE_F4, 62},
    {SDL_SCANCODE_F5, 63},         {SDL_SCANCODE_F6, 64},         {SDL_SCANCODE_F7, 65},
    {SDL_SCANCODE_F8, 66},         {SDL_SCANCODE_F9, 67},         {SDL_SCANCODE_F10, 68},
    {SDL_SCANCODE_NUMLOCKCLEAR, 69}, {SDL_SCANCODE_SCROLLLOCK, 70}, {SDL_SCANCODE_KP_7, 71},
    {SDL_SCANCODE_KP_8, 72},       {SDL_SCANCODE_KP_9, 73},       {SDL_SCANCODE_KP_MINUS, 74},
    {SDL_SCANCODE_KP_4, 75},       {SDL_SCANCODE_KP_5, 76},       {SDL_SCANCODE_KP_6, 77},
    {SDL_SCANCODE_KP_PLUS, 78},    {SDL_SCANCODE_KP_1, 79},       {SDL_SCANCODE_KP_2, 80},
    {SDL_SCANCODE_KP_3, 81},       {SDL_SCANCODE_KP_0, 82},       {SDL_SCANCODE_KP_PERIOD, 83},
    {SDL_SCANCODE_KP_ENTER, 156},  {SDL_SCANCODE_RCTRL, 157},     {SDL_SCANCODE_KP_DIVIDE, 181},
    {SDL_SCANCODE_PRINTSCREEN, 183}, {SDL_SCANCODE_RALT, 184},    {SDL_SCANCODE_PAUSE, 197},
    {SDL_SCANCODE_HOME, 199},      {SDL_SCANCODE_UP, 200},        {SDL_SCANCODE_PAGEUP, 201},
    {SDL_SCANCODE_LEFT, 203},      {SDL_SCANCODE_RIGHT, 205},     {SDL_SCANCODE_END, 207},
    {SDL_SCANCODE_DOWN, 208},      {SDL_SCANCODE_PAGEDOWN, 209},  {SDL_SCANCODE_INSERT, 210},
    {SDL_SCANCODE_DELETE, 211},
};

// Character keys, by the place they have on a US board: used when the
// layout's character there has no code (an AZERTY digit row, a German umlaut).
constexpr ScanEntry kCharacterPlaces[] = {
    {SDL_SCANCODE_1, 2},  {SDL_SCANCODE_2, 3},  {SDL_SCANCODE_3, 4},  {SDL_SCANCODE_4, 5},
    {SDL_SCANCODE_5, 6},  {SDL_SCANCODE_6, 7},  {SDL_SCANCODE_7, 8},  {SDL_SCANCODE_8, 9},
    {SDL_SCANCODE_9, 10}, {SDL_SCANCODE_0, 11}, {SDL_SCANCODE_MINUS, 12}, {SDL_SCANCODE_EQUALS, 13},
    {SDL_SCANCODE_Q, 16}, {SDL_SCANCODE_W, 17}, {SDL_SCANCODE_E, 18}, {SDL_SCANCODE_R, 19},
    {SDL_SCANCODE_T, 20}, {SDL_SCANCODE_Y, 21}, {SDL_SCANCODE_U, 22}, {SDL_SCANCODE_I, 23},
    {SDL_SCANCODE_O, 24}, {SDL_SCANCODE_P, 25}, {SDL_SCANCODE_LEFTBRACKET, 26},
    {SDL_SCANCODE_RIGHTBRACKET, 27}, {SDL_SCANCODE_A, 30}, {SDL_SCANCODE_S, 31},
    {SDL_SCANCODE_D, 32}, {SDL_SCANCODE_F, 33}, {SDL_SCANCODE_G, 34}, {SDL_SCANCODE_H, 35},
    {SDL_SCANCODE_J, 36}, {SDL_SCANCODE_K, 37}, {SDL_SCANCODE_L, 38},
    {SDL_SCANCODE_SEMICOLON, 39}, {SDL_SCANCODE_APOSTROPHE, 40}, {SDL_SCANCODE_GRAVE, 41},
    {SDL_SCANCODE_BACKSLASH, 43}, {SDL_SCANCODE_NONUSHASH, 43}, {SDL_SCANCODE_Z, 44},
    {SDL_SCANCODE_X, 45}, {SDL_SCANCODE_C, 46}, {SDL_SCANCODE_V, 47}, {SDL_SCANCODE_B, 48},
    {SDL_SCANCODE_N, 49}, {SDL_SCANCODE_M, 50}, {SDL_SCANCODE_COMMA, 51},
    {SDL_SCANCODE_PERIOD, 52}, {SDL_SCANCODE_SLASH, 53}, {SDL_SCANCODE_NONUSBACKSLASH, 86},
};

int FindCode(const ScanEntry* table, size_t n, SDL_Scancode scancode) {
  for (size_t i = 0; i < n; ++i)
    if (table[i].scancode == scancode) return table[i].code;
  return 0;
}

// The code of the key that carries this character on a US board.
int CharacterCode(SDL_Keycode keycode) {
  static constexpr uint8_t kLetters[26] = {30, 48, 46, 32, 18, 33, 34, 35, 23, 36, 37, 38, 50,
                                           49, 24, 25, 16, 19, 31, 20, 22, 47, 17, 45, 21, 44};
  if (keycode >= SDLK_a && keycode <= SDLK_z) return kLetters[keycode - SDLK_a];
  if (keycode >= SDLK_1 && keycode <= SDLK_9) return 2 + (keycode - SDLK_1);
  switch (keycode) {
    case SDLK_0: return 11;
    case SDLK_MINUS: return 12;
    case SDLK_EQUALS: return 13;
    case SDLK_LEFTBRACKET: return 26;
    case SDLK_RIGHTBRACKET: return 27;
    case SDLK_SEMICOLON: return 39;
    case SDLK_QUOTE: return 40;
    case SDLK_BACKQUOTE: return 41;
    case SDLK_BACKSLASH: return 43;
    case SDLK_COMMA: return 51;
    case SDLK_PERIOD: return 52;
    case SDLK_SLASH: return 53;
    default: return 0;
  }
}

struct TypedCharacter {
  char c;
  uint8_t code;
  uint8_t shift;  // 0 either way, 1 without, 2 with
};
// The characters of the game's keyboard, as the keys that type them on a US board.
constexpr TypedCharacter kTyped[] = {
    {'0', 11, 0}, {'1', 2, 1},  {'2', 3, 0},  {'3', 4, 0},   {'4', 5, 0},  {'5', 6, 0},  {'6', 7, 0},
    {'7', 8, 1},  {'8', 9, 0},  {'9', 10, 0}, {'&', 8, 2},   {'!', 2, 2},  {'?', 53, 2}, {'/', 53, 1},
    {'+', 13, 2}, {'-', 12, 0}, {':', 39, 2}, {'"', 40, 2},  {'\'', 40, 1}, {'.', 52, 1},
};

}  // namespace

int GameKeyCode(SDL_Scancode scancode, SDL_Keycode keycode) {
  if (int code = FindCode(kPositional, std::size(kPositional), scancode)) return code;
  int place = FindCode(kCharacterPlaces, std::size(kCharacterPlaces), scancode);
  if (!place) return 0;
  int byCharacter = CharacterCode(keycode);
  return byCharacter ? byCharacter : place;
}

WindowKey KeyState::KeyDown(SDL_Scancode scancode, SDL_Keycode keycode, bool altHeld, bool repeat) {
  if (static_cast<unsigned>(scancode) >= SDL_NUM_SCANCODES) return WindowKey::kNone;
  if (windowOwned_[scancode]) return WindowKey::kNone;  // its repeats, with or without Alt
  bool enter = scancode == SDL_SCANCODE_RETURN || scancode == SDL_SCANCODE_KP_ENTER;
  if (scancode == SDL_SCANCODE_F11 || (enter && altHeld && !held_[scancode])) {
    // The Return stays the window's until released, or it would end a name entry.
    windowOwned_[scancode] = 1;
    return repeat ? WindowKey::kNone : WindowKey::kToggleFullscreen;
  }
  if (held_[scancode]) return WindowKey::kNone;
  int code = GameKeyCode(scancode, keycode);
  if (code) {
    held_[scancode] = static_cast<uint8_t>(code);
    tapped_[code] = 1;
    shiftFor_[scancode] = 0;
    lastDown_ = scancode;
  }
  return WindowKey::kNone;
}

void KeyState::TextTyped(const char* utf8) {
  if (!utf8 || !utf8[0] || utf8[1] || lastDown_ == SDL_SCANCODE_UNKNOWN) return;  // one ASCII character
  const SDL_Scancode key = lastDown_;
  lastDown_ = SDL_SCANCODE_UNKNOWN;
  if (!held_[key] || !FindCode(kCharacterPlaces, std::size(kCharacterPlaces), key)) return;
  char c = utf8[0];
  if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  int code = c >= 'a' && c <= 'z' ? CharacterCode(SDLK_a + (c - 'a')) : 0;
  uint8_t shift = 0;
  for (const TypedCharacter& t : kTyped)
    if (t.c == c) code = t.code, shift = t.shift;
  if (!code) return;
  tapped_[held_[key]] = 0;
  held_[key] = static_cast<uint8_t>(code);
  tapped_[code] = 1;
  shiftFor_[key] = shift;
  tapShift_ = shift;
}

void KeyState::KeyUp(SDL_Scancode scancode) {
  if (static_cast<unsigned>(scancode) >= SDL_NUM_SCANCODES) return;
  held_[scancode] = 0;
  shiftFor_[scancode] = 0;
  windowOwned_[scancode] = 0;
}

void KeyState::ReleaseAll() {
  std::memset(held_, 0, sizeof held_);
  std::memset(windowOwned_, 0, sizeof windowOwned_);
  std::memset(shiftFor_, 0, sizeof shiftFor_);
  std::memset(tapped_, 0, sizeof tapped_);
  tapShift_ = 0;
  lastDown_ = SDL_SCANCODE_UNKNOWN;
}

void KeyState::FramePresented() {
  if (!readSinceFrame_) {
    std::memset(tapped_, 0, sizeof tapped_);
    tapShift_ = 0;
  }
  readSinceFrame_ = false;
}

void KeyState::Read(uint8_t state[256]) {
  readSinceFrame_ = true;
  std::memcpy(state, tapped_, 256);
  std::memset(tapped_, 0, sizeof tapped_);
  uint8_t shift = tapShift_;
  tapShift_ = 0;
  for (int s = 0; s < SDL_NUM_SCANCODES; ++s) {
    if (!held_[s]) continue;
    state[held_[s]] = 1;
    if (shiftFor_[s]) shift = shiftFor_[s];
  }
  // A typed character brings the Shift state its glyph needs in the game's table.
  if (shift == 1) state[42] = state[54] = 0;
  if (shift == 2) state[42] = 1;
}

void ButtonState::Down(int i) {
  if (i < 0 || i >= kButtons) return;
  held_[i] = tapped_[i] = 1;
}

void ButtonState::Up(int i) {
  if (i >= 0 && i < kButtons) held_[i] = 0;
}

void ButtonState::ReleaseAll() {
  std::memset(held_, 0, sizeof held_);
  std::memset(tapped_, 0, sizeof tapped_);
}

void ButtonState::Read(uint8_t buttons[kButtons]) {
  readSinceFrame_ = true;
  for (int i = 0; i < kButtons; ++i) buttons[i] = held_[i] || tapped_[i];
  std::memset(tapped_, 0, sizeof tapped_);
}

void ButtonState::FramePresented() {
  if (!readSinceFrame_) std::memset(tapped_, 0, sizeof tapped_);
  readSinceFrame_ = false;
}

}  // namespace platform
