#include "platform/sdl_joystick.h"

#include <SDL2/SDL.h>

#include <algorithm>
#include <cstdio>
#include <iterator>

namespace platform {
namespace {

// A hat pushed one way is the stick at the end of its travel that way.
int32_t HatAxis(bool negative, bool positive, int32_t stick) {
  if (negative == positive) return stick;  // neither, or nonsense (both)
  return negative ? -1000 : 1000;
}

// Controller buttons in the order the game numbers them: A is button 1 (flip,
// click), B button 2 (pause, back); the d-pad is read as the stick instead.
constexpr SDL_GameControllerButton kControllerButtons[] = {
    SDL_CONTROLLER_BUTTON_A,          SDL_CONTROLLER_BUTTON_B,
    SDL_CONTROLLER_BUTTON_X,          SDL_CONTROLLER_BUTTON_Y,
    SDL_CONTROLLER_BUTTON_LEFTSHOULDER, SDL_CONTROLLER_BUTTON_RIGHTSHOULDER,
    SDL_CONTROLLER_BUTTON_BACK,       SDL_CONTROLLER_BUTTON_START,
    SDL_CONTROLLER_BUTTON_LEFTSTICK,  SDL_CONTROLLER_BUTTON_RIGHTSTICK,
    SDL_CONTROLLER_BUTTON_GUIDE,      SDL_CONTROLLER_BUTTON_MISC1,
    SDL_CONTROLLER_BUTTON_PADDLE1,    SDL_CONTROLLER_BUTTON_PADDLE2,
    SDL_CONTROLLER_BUTTON_PADDLE3,    SDL_CONTROLLER_BUTTON_PADDLE4,
    SDL_CONTROLLER_BUTTON_TOUCHPAD,
};

}  // namespace

JoystickReading AdaptPad(const RawPad& raw) {
  JoystickReading out;
  int32_t x = raw.axes.size() > 0 ? ScaleJoystickAxis(raw.axes[0]) : 0;
  int32_t y = raw.axes.size() > 1 ? ScaleJoystickAxis(raw.axes[1]) : 0;
  out.x = HatAxis(raw.hat & SDL_HAT_LEFT, raw.hat & SDL_HAT_RIGHT, x);
  out.y = HatAxis(raw.hat & SDL_HAT_UP, raw.hat & SDL_HAT_DOWN, y);
  size_t n = std::min(raw.buttons.size(), std::size(out.buttons));
  for (size_t i = 0; i < n; ++i) out.buttons[i] = raw.buttons[i] ? 1 : 0;
  return out;
}

bool SdlPad::Open() {
  Close();
  if (!SDL_WasInit(SDL_INIT_GAMECONTROLLER)) return false;
  if (SDL_NumJoysticks() <= 0) return false;
  if (SDL_IsGameController(0)) {
    controller_ = SDL_GameControllerOpen(0);
    if (controller_) {
      const char* name = SDL_GameControllerName(controller_);
      name_ = name ? name : "game controller";
      return true;
    }
    // Its mapping may be broken; the plain joystick may still work.
    std::fprintf(stderr, "joystick: cannot open as a game controller (%s); trying as a joystick\n",
                 SDL_GetError());
  }
  joystick_ = SDL_JoystickOpen(0);
  if (!joystick_) {
    std::fprintf(stderr, "joystick: cannot open the first joystick: %s\n", SDL_GetError());
    return false;
  }
  const char* name = SDL_JoystickName(joystick_);
  name_ = name ? name : "joystick";
  return true;
}

void SdlPad::Close() {
  if (controller_) SDL_GameControllerClose(controller_);
  if (joystick_) SDL_JoystickClose(joystick_);
  controller_ = nullptr;
  joystick_ = nullptr;
}

bool SdlPad::ReadRaw(RawPad& raw) {
  if (controller_) {
    if (!SDL_GameControllerGetAttached(controller_)) return false;
    raw.axes = {SDL_GameControllerGetAxis(controller_, SDL_CONTROLLER_AXIS_LEFTX),
                SDL_GameControllerGetAxis(controller_, SDL_CONTROLLER_AXIS_LEFTY)};
    for (auto b : kControllerButtons) raw.buttons.push_back(SDL_GameControllerGetButton(controller_, b));
    // Triggers count as buttons once pressed half way.
    for (auto a : {SDL_CONTROLLER_AXIS_TRIGGERLEFT, SDL_CONTROLLER_AXIS_TRIGGERRIGHT})
      raw.buttons.push_back(SDL_GameControllerGetAxis(controller_, a) > 16384);
    raw.hat = (SDL_GameControllerGetButton(controller_, SDL_CONTROLLER_BUTTON_DPAD_UP) ? SDL_HAT_UP : 0) |
              (SDL_GameControllerGetButton(controller_, SDL_CONTROLLER_BUTTON_DPAD_RIGHT) ? SDL_HAT_RIGHT : 0) |
              (SDL_GameControllerGetButton(controller_, SDL_CONTROLLER_BUTTON_DPAD_DOWN) ? SDL_HAT_DOWN : 0) |
              (SDL_GameControllerGetButton(controller_, SDL_CONTROLLER_BUTTON_DPAD_LEFT) ? SDL_HAT_LEFT : 0);
    return true;
  }
  if (!SDL_JoystickGetAttached(joystick_)) return false;
  // Counts are -1 on a device error; read as none.
  int axes = std::clamp(SDL_JoystickNumAxes(joystick_), 0, 2);
  for (int i = 0; i < axes; ++i) raw.axes.push_back(SDL_JoystickGetAxis(joystick_, i));
  int buttons = std::clamp(SDL_JoystickNumButtons(joystick_), 0, 32);
  for (int i = 0; i < buttons; ++i) raw.buttons.push_back(SDL_JoystickGetButton(joystick_, i));
  if (SDL_JoystickNumHats(joystick_) > 0) raw.hat = SDL_JoystickGetHat(joystick_, 0);
  return true;
}

bool SdlPad::Read(JoystickReading& out) {
  if (!IsOpen()) return false;
  RawPad raw;
  if (!ReadRaw(raw)) {
    std::fprintf(stderr, "joystick: %s was disconnected\n", name_.c_str());
    Close();
    return false;
  }
  out = AdaptPad(raw);
  return true;
}

}  // namespace platform
