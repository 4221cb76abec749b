#pragma once

namespace frame {

// Makes the program's variables visible to dumps and the automation's `set`.
void ExposeProgramState();

}  // namespace frame
