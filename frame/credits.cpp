#include "frame/credits.h"

namespace frame {

namespace {
// Sections of the roll; blank lines between them fill it out to 152 lines.
const char* const kSections[][12] = {
    {"BONUS VORREL", "plus", "WICKORY", nullptr},
    {"A Vorrel Works game", nullptr},
    {"GAME DESIGN", "The Vorrel Works team", nullptr},
    {"PROGRAMMING", "Display and surfaces", "Input and controls", "Sound and music", "Game rules",
     "Fuses and detonations", "Menus and high scores", nullptr},
    {"GRAPHICS", "Pieces and fuses", "Backgrounds and scenes", "Lettering and buttons", nullptr},
    {"SOUND", "Effects synthesised in house", "Voices spoken by flite", nullptr},
    {"MUSIC", "Composed for this game", "Played by FluidSynth", "through a General MIDI soundfont", nullptr},
    {"BUILT WITH", "SDL2, SDL_mixer, SDL_ttf, SDL_image", "FluidSynth", "Cairo", "DejaVu fonts", "flite",
     "GoogleTest and Google Benchmark", nullptr},
    {"PLAY TESTING", "Everyone who ever said", "\"just one more game\"", nullptr},
    {"SPECIAL THANKS", "The Debian project", "Free software everywhere", nullptr},
    {"HINTS", "Clear four rows at once", "for a Vorrel.", "Five or more with the bonus pieces", "is a Mega Vorrel.",
     nullptr},
    {"In Wickory, link a fuse", "from the detonator", "to a charge, and stand back.", nullptr},
    {"Every 50 blocks you blow up", "raise the level.", nullptr},
    {"THANK YOU FOR PLAYING!", nullptr},
};
}  // namespace

std::vector<std::string> CreditsLines() {
  std::vector<std::string> lines;
  for (const auto& section : kSections) {
    for (int i = 0; i < 12 && section[i]; ++i) lines.emplace_back(section[i]);
    for (int i = 0; i < 6; ++i) lines.emplace_back("");
  }
  lines.resize(152, "");
  return lines;
}

}  // namespace frame
