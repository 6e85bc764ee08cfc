#include "cli.h"

// kalvex-cli's commands that draw, in a program of their own that loads Qt.
int main(int argc, char** argv) { return kalvex::RunCliProgram(argc, argv); }
