// The input a script feeds in: keys, the mouse, the pointer and one virtual
// pad. The device layer adds it to whatever the real devices report.
#pragma once
#include <cstdint>
#include <optional>

namespace platform::scripted {

enum class Axis { X, Y };

// Everything up, no motion, the pad unplugged.
void Reset();
// A poll starts: taps and clicks of the previous poll go up.
void BeginPoll();

void KeyDown(int code);
void KeyUp(int code);
void KeyTap(int code);
bool KeyIsDown(int code);

void MouseMove(int32_t dx, int32_t dy);
// Buttons from 1: left, right, middle.
void MouseDown(int button);
void MouseUp(int button);
void MouseClick(int button);
bool MouseButtonDown(int button);
// Pending relative motion, taken (and cleared) by a mouse read.
void TakeMotion(int32_t& dx, int32_t& dy);
// A `pointer X Y` target waiting for the next pointer read; taken once.
void PointTo(int x, int y);
bool TakePointerTarget(int& x, int& y);

// The virtual pad. Opened by the game while plugged; a read fails once it is
// unplugged, until the game opens it again while plugged.
void PadPlug();
void PadUnplug();
bool PadPlugged();
void PadOpen();
void PadClose();
bool PadReadable();
void PadAxis(Axis axis, int32_t value);  // -1000..1000, as the game reads it
void PadRaw(Axis axis, int32_t raw);     // -32768..32767, through dead zone and saturation
int32_t PadAxisValue(Axis axis);
// Buttons from 1.
void PadDown(int button);
void PadUp(int button);
bool PadButtonDown(int button);

}  // namespace platform::scripted
