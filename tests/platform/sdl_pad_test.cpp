// The SDL back end's pad handling against SDL's virtual pads: no window and
// no hardware needed.
#include <SDL2/SDL.h>
#include <gtest/gtest.h>

#include <string>

#include "platform/backend.h"

namespace platform {
namespace {

class SdlPadTest : public ::testing::Test {
 protected:
  void SetUp() override {
    backend_ = MakeSdlBackend(true);
    std::string error;
    ASSERT_TRUE(backend_->OpenInput(error)) << error;
    if (!SDL_WasInit(SDL_INIT_GAMECONTROLLER)) GTEST_SKIP() << "no joystick support here";
    if (backend_->JoystickAttached()) GTEST_SKIP() << "a real pad is attached; it would be read first";
  }
  void TearDown() override {
    if (virtualIndex_ >= 0) SDL_JoystickDetachVirtual(virtualIndex_);
    if (backend_) backend_->CloseInput();
  }
  // The one pad attached: its device index is 0.
  SDL_Joystick* Attach(const SDL_VirtualJoystickDesc& desc) {
    virtualIndex_ = SDL_JoystickAttachVirtualEx(&desc);
    EXPECT_GE(virtualIndex_, 0) << SDL_GetError();
    EXPECT_TRUE(backend_->JoystickAttached());
    EXPECT_TRUE(backend_->OpenJoystick());
    // Our own handle to the same device, to move its controls.
    return SDL_JoystickOpen(virtualIndex_);
  }
  JoystickReading Read() {
    SDL_JoystickUpdate();
    JoystickReading r;
    EXPECT_TRUE(backend_->ReadJoystick(r));
    return r;
  }

  std::unique_ptr<Backend> backend_;
  int virtualIndex_ = -1;
};

TEST_F(SdlPadTest, PlainPadWithOneAxisReadsAndFailsWhenUnplugged) {
  SDL_VirtualJoystickDesc desc{};
  desc.version = SDL_VIRTUAL_JOYSTICK_DESC_VERSION;
  desc.type = SDL_JOYSTICK_TYPE_UNKNOWN;
  desc.naxes = 1;
  desc.nbuttons = 2;
  desc.nhats = 1;
  desc.name = "one-axis test pad";
  SDL_Joystick* pad = Attach(desc);
  ASSERT_NE(pad, nullptr);
  ASSERT_FALSE(SDL_IsGameController(virtualIndex_));

  SDL_JoystickSetVirtualAxis(pad, 0, -32768);
  SDL_JoystickSetVirtualButton(pad, 1, 1);
  JoystickReading r = Read();
  EXPECT_EQ(r.x, -1000);
  EXPECT_EQ(r.y, 0);  // the missing axis reads centred
  EXPECT_EQ(r.buttons[0], 0);
  EXPECT_EQ(r.buttons[1], 1);
  EXPECT_EQ(r.buttons[2], 0);

  // The hat is the stick at full deflection.
  SDL_JoystickSetVirtualAxis(pad, 0, 0);
  SDL_JoystickSetVirtualHat(pad, 0, SDL_HAT_DOWN);
  r = Read();
  EXPECT_EQ(r.x, 0);
  EXPECT_EQ(r.y, 1000);

  // Unplugged: a read failure, and the pad is gone from the list.
  SDL_JoystickClose(pad);
  SDL_JoystickDetachVirtual(virtualIndex_);
  virtualIndex_ = -1;
  JoystickReading after;
  EXPECT_FALSE(backend_->ReadJoystick(after));
  EXPECT_FALSE(backend_->JoystickAttached());
  backend_->CloseJoystick();
}

TEST_F(SdlPadTest, GameControllerReadsStickDpadAndSouthButtonFirst) {
  SDL_VirtualJoystickDesc desc{};
  desc.version = SDL_VIRTUAL_JOYSTICK_DESC_VERSION;
  desc.type = SDL_JOYSTICK_TYPE_GAMECONTROLLER;
  desc.naxes = SDL_CONTROLLER_AXIS_MAX;
  desc.nbuttons = SDL_CONTROLLER_BUTTON_MAX;
  desc.name = "controller test pad";
  SDL_Joystick* pad = Attach(desc);
  ASSERT_NE(pad, nullptr);
  if (!SDL_IsGameController(virtualIndex_)) GTEST_SKIP() << "SDL gave the virtual pad no controller layout";

  // Virtual controllers number their controls as SDL's controller enums.
  SDL_JoystickSetVirtualAxis(pad, SDL_CONTROLLER_AXIS_LEFTX, 32767);
  SDL_JoystickSetVirtualAxis(pad, SDL_CONTROLLER_AXIS_LEFTY, 1000);  // inside the dead zone
  SDL_JoystickSetVirtualButton(pad, SDL_CONTROLLER_BUTTON_B, 1);
  JoystickReading r = Read();
  EXPECT_EQ(r.x, 1000);
  EXPECT_EQ(r.y, 0);
  EXPECT_EQ(r.buttons[0], 0);  // A: button 1
  EXPECT_EQ(r.buttons[1], 1);  // B: button 2

  SDL_JoystickSetVirtualButton(pad, SDL_CONTROLLER_BUTTON_B, 0);
  SDL_JoystickSetVirtualButton(pad, SDL_CONTROLLER_BUTTON_A, 1);
  SDL_JoystickSetVirtualAxis(pad, SDL_CONTROLLER_AXIS_LEFTX, 0);
  SDL_JoystickSetVirtualButton(pad, SDL_CONTROLLER_BUTTON_DPAD_UP, 1);
  SDL_JoystickSetVirtualButton(pad, SDL_CONTROLLER_BUTTON_DPAD_LEFT, 1);
  r = Read();
  EXPECT_EQ(r.x, -1000);
  EXPECT_EQ(r.y, -1000);
  EXPECT_EQ(r.buttons[0], 1);
  EXPECT_EQ(r.buttons[1], 0);
  SDL_JoystickClose(pad);
}

}  // namespace
}  // namespace platform
