#include "frame/program.h"

#include <cstdio>

namespace frame {

int RunProgram(int, char**) {
  std::fprintf(stderr, "vorrel: the program frame is being built\n");
  return 1;
}

}  // namespace frame
