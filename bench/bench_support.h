// What the benchmarks share: a headless program (or one real window) on the
// generated data, and the gaps between presented frames of an animation.
#pragma once
#include <string>

namespace benchsupport {

// The headless back end, the display, the glyph order and silent audio on
// the generated data folder. False (and nothing opened) without data.
bool OpenHeadless();
// The above, plus every picture and sound of the catalogue, made once.
bool LoadCatalogue();
// The real SDL back end in a window instead, sound into SDL's dummy device,
// a scratch home folder, the catalogue loaded; only in a process that has
// not opened the headless one. False with why in `why`.
bool OpenWindow(std::string& why);
// Stops the sound of the window before the process ends.
void CloseWindow();

// Times every presented frame from now on; with a limit, the orderly quit
// is asked for once that many frames have been timed.
void TimeFrames(long limit = 0);
// Since TimeFrames or the last ResetFrames: the worst gap in ms, the frame it
// ended and the frames seen.
double WorstFrameMs();
long WorstFrame();
long FramesSeen();
double MedianFrameMs();
long GapsOverMs(double ms);
double TimedMs();  // from the start to the last frame seen
void ResetFrames();

}  // namespace benchsupport
