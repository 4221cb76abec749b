// Effect recipes: each effect is a sum of layers (an oscillator or noise
// through filters and an envelope), written as text in assets/sounds/effects.txt
// so that a sound can be tuned without touching the synthesiser.
#pragma once
#include <map>
#include <string>
#include <vector>

#include "tools/assetgen/sound_wav.h"

namespace assetgen {

// A number of a layer: "3", a random pick "2~4" (drawn per repetition), and
// either may sweep to an end value over the layer: "300~340>80".
struct SoundValue {
  double lo = 0, hi = 0;
  bool sweep = false;
  double endLo = 0, endHi = 0;
};

struct SoundLayer {
  std::string kind;  // sine square saw tri noise crackle
  std::map<std::string, SoundValue> params;
  std::string source;  // file:line, for messages
};

struct SoundRecipe {
  std::string name;
  double peak = 0.7;   // final peak level
  double drive = 0;    // tanh saturation before levelling, 0 = none
  double len = 0;      // cut to this length; 0 = as long as the layers
  std::vector<SoundLayer> layers;
};

// Parses a recipe file; throws std::runtime_error naming file and line.
std::map<std::string, SoundRecipe> ParseSoundRecipes(const std::string& path);

// Renders a recipe at the given rate, levelled to its peak. Deterministic.
Pcm RenderSoundRecipe(const SoundRecipe& r, int rate);

}  // namespace assetgen
