// Garbage of the start height and of a Type C detonation: full rows of random
// tiles falling in block by block, then 96 random cells blown out.
#pragma once

namespace game {

// Rows full rows from the bottom up, animated and scored 5 x (Level + 1) a block.
void DropGarbageRows(int rows);
// Blows out 96 random cells of the field, with their flying pieces.
void BlowHoles();

}  // namespace game
