#include "frame/program.h"

int main(int argc, char** argv) { return frame::RunProgram(argc, argv); }
