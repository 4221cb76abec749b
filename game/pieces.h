// The pieces: cut from the variant's sheets, drawn at random, brought in
// from the preview. A piece's cells are read from its sprite's pixels.
#pragma once

namespace game {

void CreatePieces();
void FreshNex();
void FreshCurrent();

}  // namespace game
