#pragma once

#include <string>

#include "model/session.h"

namespace kalvex {

// What "Two-port from file..." asks for: the stage (1..5), the file, and how
// the block sits in the line.
struct TwoPortChoice {
  int stage = 1;
  std::string file;
  BlockPlacement placement = BlockPlacement::Cascade;
  bool swapped = false;
  bool port2Shorted = false;
};

// Reads the chosen file and makes its stage a two-port block with the chosen
// placement. Returns "" when done; else why not (the file's problem, named),
// with the session as it was.
std::string PlaceTwoPortBlock(Session& session, const TwoPortChoice& choice);

// The first empty stage, or 1 when every stage holds a part: where the
// dialog proposes to put a block.
int FirstFreeStage(const Session& session);

}  // namespace kalvex
