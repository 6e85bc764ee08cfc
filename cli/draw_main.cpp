#include <iostream>

#include "cli.h"

// kalvex-cli's commands that draw, in a program of their own that loads Qt.
int main(int argc, char** argv) {
  return kalvex::RunCli({argv + 1, argv + argc}, std::cout, std::cerr);
}
