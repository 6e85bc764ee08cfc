#include <iostream>

#include "cli.h"

int main(int argc, char** argv) {
  return kalvex::RunCli({argv + 1, argv + argc}, std::cout, std::cerr);
}
