#include "program.h"

int main(int argc, char* argv[]) { return Kedrin::ModTool::runProgram(argc, argv); }
