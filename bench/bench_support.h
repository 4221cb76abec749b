// What the benchmarks share: a headless program on the generated data, and
// the worst gap between presented frames of an animation.
#pragma once

namespace benchsupport {

// The headless back end, the display, the glyph order and silent audio on
// the generated data folder. False (and nothing opened) without data.
bool OpenHeadless();
// The above, plus every picture and sound of the catalogue, made once.
bool LoadCatalogue();

// Times every presented frame from now on.
void TimeFrames();
// Since TimeFrames or the last ResetFrames: the worst gap in ms, the frame it
// ended and the frames seen.
double WorstFrameMs();
long WorstFrame();
long FramesSeen();
void ResetFrames();

}  // namespace benchsupport
