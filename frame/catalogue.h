// The asset catalogue: creates every picture of display/assets.h and every
// sound buffer once at start-up, behind the loading screen.
#pragma once
#include "display/assets.h"

namespace frame {

using display::Assets;
using display::AssetSurfaces;
using display::Surface;

// The sound buffers of the sound table, in ascending index order.
void CreateSound();
// Every surface of the catalogue, in order, with the progress screen.
void CreateGraphics();
// One creation step: the progress bar is redrawn every 20 steps.
void UpdateLoadStatus();
// The two texts of both loading screens, on the back buffer.
void DrawLoadingTexts();
// Names the catalogue's surfaces for screenshots and dumps.
void NameAssetSurfaces();

inline constexpr int kFinalLoadStep = 877;

}  // namespace frame
