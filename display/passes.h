// Every pass of every loop goes through here: a presented frame, or a pass
// that presents nothing. Both move the clock, pace a window to real time,
// handle window events, run the automation's moments and end the run with
// OrderlyQuit when the orderly quit was asked for.
#pragma once
#include <cstdint>

namespace display {

// Called by PresentFrame once the new picture is on screen.
void FramePresented();
// A pass that presents nothing (the controller-lost screen, waits for a key's
// release). Shows anything drawn straight onto the front surface meanwhile.
void IdlePass();
// "Wait N ms without drawing": idle passes until the tick has moved N ms on.
void WaitMs(uint32_t ms);
// Frames presented since start.
uint64_t FramesPresented();
// Millisecond tick (the game's only clock).
uint32_t GetTick();
// Yields to the window's message loop without moving the clock.
void YieldToSystem();

}  // namespace display
