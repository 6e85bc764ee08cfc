#include "cli.h"
#include "commands.h"

namespace kalvex {

const DrawingCommands kDrawHere = {RunRenderCommand, RunPrintCommand};

}  // namespace kalvex
