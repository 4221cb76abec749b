#include "platform/sdl_keys.h"

#include <gtest/gtest.h>

#include <vector>

namespace platform {
namespace {

std::vector<int> Down(KeyState& keys) {
  uint8_t state[256];
  keys.Read(state);
  std::vector<int> codes;
  for (int i = 0; i < 256; ++i)
    if (state[i]) codes.push_back(i);
  return codes;
}

TEST(SdlKeys, PositionalKeysIgnoreTheLayout) {
  // Whatever character a layout claims for them, these keys are places.
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_ESCAPE, SDLK_ESCAPE), 1);
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_RETURN, SDLK_RETURN), 28);
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_BACKSPACE, SDLK_BACKSPACE), 14);
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_LSHIFT, SDLK_LSHIFT), 42);
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_RSHIFT, SDLK_RSHIFT), 54);
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_SPACE, SDLK_a), 57);
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_F1, SDLK_F1), 59);
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_F10, SDLK_F10), 68);
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_UP, SDLK_UP), 200);
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_LEFT, SDLK_LEFT), 203);
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_RIGHT, SDLK_RIGHT), 205);
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_DOWN, SDLK_DOWN), 208);
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_KP_ENTER, SDLK_KP_ENTER), 156);
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_DELETE, SDLK_DELETE), 211);
}

TEST(SdlKeys, CharacterKeysFollowTheLayout) {
  // US board: the character and the place agree.
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_A, SDLK_a), 30);
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_M, SDLK_m), 50);
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_1, SDLK_1), 2);
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_0, SDLK_0), 11);
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_SLASH, SDLK_SLASH), 53);
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_APOSTROPHE, SDLK_QUOTE), 40);
  // German board: Y and Z swap places, and the game sees the letter typed.
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_Y, SDLK_z), 44);
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_Z, SDLK_y), 21);
  // French board: A on the US Q place, M on the US semicolon place, comma on the M place.
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_Q, SDLK_a), 30);
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_SEMICOLON, SDLK_m), 50);
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_M, SDLK_COMMA), 51);
  // A character without a code falls back to the key's place: the French
  // digit row (&, é) and a German umlaut.
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_1, SDLK_AMPERSAND), 2);
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_2, SDL_Keycode(0xE9)), 3);
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_SEMICOLON, SDL_Keycode(0xF6)), 39);
}

TEST(SdlKeys, TypedCharactersComeOutAsTyped) {
  // German Shift+7 types "/": the game sees the slash key without Shift.
  KeyState de;
  de.KeyDown(SDL_SCANCODE_LSHIFT, SDLK_LSHIFT, false, false);
  de.KeyDown(SDL_SCANCODE_7, SDLK_7, false, false);
  de.TextTyped("/");
  EXPECT_EQ(Down(de), std::vector<int>({53}));
  de.KeyUp(SDL_SCANCODE_7);
  EXPECT_EQ(Down(de), std::vector<int>({42})) << "Shift is the player's again once the key is up";

  // French: the & key types "&" (the game's Shift+7), Shift+& types "1" (no Shift).
  KeyState fr;
  fr.KeyDown(SDL_SCANCODE_1, SDLK_AMPERSAND, false, false);
  fr.TextTyped("&");
  EXPECT_EQ(Down(fr), std::vector<int>({8, 42}));
  fr.KeyUp(SDL_SCANCODE_1);
  Down(fr);
  fr.KeyDown(SDL_SCANCODE_RSHIFT, SDLK_RSHIFT, false, false);
  fr.KeyDown(SDL_SCANCODE_1, SDLK_AMPERSAND, false, false);
  fr.TextTyped("1");
  EXPECT_EQ(Down(fr), std::vector<int>({2}));
  fr.KeyUp(SDL_SCANCODE_1);
  // A quick tap between two reads keeps its character and Shift.
  fr.KeyDown(SDL_SCANCODE_COMMA, SDLK_SEMICOLON, false, false);
  fr.TextTyped(".");
  fr.KeyUp(SDL_SCANCODE_COMMA);
  EXPECT_EQ(Down(fr), std::vector<int>({52}));
  // A character the game has no glyph for leaves the key as it was.
  fr.KeyDown(SDL_SCANCODE_2, SDL_Keycode(0xE9), false, false);
  fr.TextTyped("\xC3\xA9");
  EXPECT_EQ(Down(fr), std::vector<int>({3, 54}));
}

TEST(SdlKeys, WindowKeysAndUnknownKeysGiveNothing) {
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_F11, SDLK_F11), 0);
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_F12, SDLK_F12), 0);
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_LGUI, SDLK_LGUI), 0);
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_VOLUMEUP, SDLK_VOLUMEUP), 0);
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_UNKNOWN, SDLK_a), 0);
  // A positional key never picks up a character from the layout.
  EXPECT_EQ(GameKeyCode(SDL_SCANCODE_F13, SDLK_a), 0);
}

TEST(SdlKeys, StateHidesWindowKeysAndKeepsTaps) {
  KeyState keys;
  EXPECT_TRUE(Down(keys).empty());

  // F11 toggles once, however long it is held, and is never seen.
  EXPECT_EQ(keys.KeyDown(SDL_SCANCODE_F11, SDLK_F11, false, false), WindowKey::kToggleFullscreen);
  EXPECT_EQ(keys.KeyDown(SDL_SCANCODE_F11, SDLK_F11, false, true), WindowKey::kNone);
  EXPECT_TRUE(Down(keys).empty());
  keys.KeyUp(SDL_SCANCODE_F11);

  // Alt+Enter: Alt is an ordinary key, the Return is the window's, also
  // after Alt is let go first.
  keys.KeyDown(SDL_SCANCODE_LALT, SDLK_LALT, true, false);
  EXPECT_EQ(keys.KeyDown(SDL_SCANCODE_RETURN, SDLK_RETURN, true, false), WindowKey::kToggleFullscreen);
  EXPECT_EQ(Down(keys), std::vector<int>{56});
  keys.KeyUp(SDL_SCANCODE_LALT);
  keys.KeyDown(SDL_SCANCODE_RETURN, SDLK_RETURN, false, true);  // its repeat
  EXPECT_TRUE(Down(keys).empty());
  keys.KeyUp(SDL_SCANCODE_RETURN);
  // A plain Return afterwards is the game's.
  EXPECT_EQ(keys.KeyDown(SDL_SCANCODE_RETURN, SDLK_RETURN, false, false), WindowKey::kNone);
  EXPECT_EQ(Down(keys), std::vector<int>{28});
  keys.KeyUp(SDL_SCANCODE_RETURN);
  EXPECT_TRUE(Down(keys).empty());

  // A tap between two reads is seen once.
  keys.KeyDown(SDL_SCANCODE_Q, SDLK_a, false, false);
  keys.KeyUp(SDL_SCANCODE_Q);
  EXPECT_EQ(Down(keys), std::vector<int>{30});
  EXPECT_TRUE(Down(keys).empty());

  // The code is fixed at the press: a layout change before the release
  // does not leave the first letter stuck.
  keys.KeyDown(SDL_SCANCODE_Y, SDLK_z, false, false);
  keys.KeyDown(SDL_SCANCODE_Y, SDLK_y, false, true);
  EXPECT_EQ(Down(keys), std::vector<int>{44});
  keys.KeyUp(SDL_SCANCODE_Y);
  EXPECT_TRUE(Down(keys).empty());

  // Keys held when the focus goes are released.
  keys.KeyDown(SDL_SCANCODE_LEFT, SDLK_LEFT, false, false);
  keys.KeyDown(SDL_SCANCODE_LSHIFT, SDLK_LSHIFT, false, false);
  EXPECT_EQ(Down(keys), (std::vector<int>{42, 203}));
  keys.ReleaseAll();
  EXPECT_TRUE(Down(keys).empty());

  // Scancodes SDL does not know are ignored, not written out of bounds.
  keys.KeyDown(SDL_Scancode(SDL_NUM_SCANCODES + 5), SDLK_a, false, false);
  keys.KeyUp(SDL_Scancode(SDL_NUM_SCANCODES));
  EXPECT_TRUE(Down(keys).empty());
}

TEST(SdlKeys, APressNothingReadIsDroppedAtTheNextFrame) {
  KeyState keys;
  // A tap between a read and the frame after it waits for the next read.
  Down(keys);
  keys.KeyDown(SDL_SCANCODE_ESCAPE, SDLK_ESCAPE, false, false);
  keys.KeyUp(SDL_SCANCODE_ESCAPE);
  keys.FramePresented();
  EXPECT_EQ(Down(keys), std::vector<int>{1});
  keys.FramePresented();

  // Frames in which nothing reads the keyboard (the menu): a tap is dropped
  // at the next one, with the Shift a typed character brought along.
  keys.KeyDown(SDL_SCANCODE_F10, SDLK_F10, false, false);
  keys.KeyUp(SDL_SCANCODE_F10);
  keys.KeyDown(SDL_SCANCODE_SLASH, SDLK_SLASH, false, false);
  keys.TextTyped("?");
  keys.KeyUp(SDL_SCANCODE_SLASH);
  keys.FramePresented();
  EXPECT_TRUE(Down(keys).empty()) << "F10 and ? tapped in the menu reach nobody";

  // A key still held counts however many frames went by unread.
  keys.FramePresented();
  keys.KeyDown(SDL_SCANCODE_LEFT, SDLK_LEFT, false, false);
  keys.FramePresented();
  keys.FramePresented();
  EXPECT_EQ(Down(keys), std::vector<int>{203});
  keys.FramePresented();
  keys.FramePresented();
  keys.KeyUp(SDL_SCANCODE_LEFT);
  keys.FramePresented();
  EXPECT_TRUE(Down(keys).empty()) << "released unread: gone";

  // Focus lost: taps go with the held keys.
  keys.KeyDown(SDL_SCANCODE_UP, SDLK_UP, false, false);
  keys.KeyUp(SDL_SCANCODE_UP);
  keys.ReleaseAll();
  EXPECT_TRUE(Down(keys).empty());
}

TEST(SdlKeys, MouseButtonsFollowTheSameRule) {
  ButtonState buttons;
  auto read = [&] {
    uint8_t b[ButtonState::kButtons];
    buttons.Read(b);
    return std::vector<int>(b, b + ButtonState::kButtons);
  };
  // A click between two reads is seen once.
  buttons.Down(0);
  buttons.Up(0);
  EXPECT_EQ(read(), (std::vector<int>{1, 0, 0, 0}));
  EXPECT_EQ(read(), (std::vector<int>{0, 0, 0, 0}));
  // After a frame with a read, it waits for the next read.
  buttons.Down(1);
  buttons.Up(1);
  buttons.FramePresented();
  EXPECT_EQ(read(), (std::vector<int>{0, 1, 0, 0}));
  buttons.FramePresented();
  // A click while nothing reads the mouse (the introduction) is dropped.
  buttons.Down(0);
  buttons.Up(0);
  buttons.FramePresented();
  EXPECT_EQ(read(), (std::vector<int>{0, 0, 0, 0}));
  // Held: counts across unread frames; focus loss releases it and its click.
  buttons.FramePresented();
  buttons.Down(2);
  buttons.FramePresented();
  buttons.FramePresented();
  EXPECT_EQ(read(), (std::vector<int>{0, 0, 1, 0}));
  buttons.Down(0);
  buttons.Up(0);
  buttons.ReleaseAll();
  EXPECT_EQ(read(), (std::vector<int>{0, 0, 0, 0}));
  buttons.Down(-1);
  buttons.Down(ButtonState::kButtons);
  EXPECT_EQ(read(), (std::vector<int>{0, 0, 0, 0})) << "buttons the game has no use for";
}

}  // namespace
}  // namespace platform
