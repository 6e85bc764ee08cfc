#pragma once

#include <optional>
#include <string>

#include "model/session.h"
#include "model/two_port.h"

namespace kalvex {

// The network of stages 1..5 without its load as one two-port at f: port 1
// at the generator, port 2 where the load goes. Each stage's matrix holds the
// same impedances as its stage calculation, so a load on port 2 is seen from
// port 1 as CalculateNetwork sees it. Nothing where a two-port block's file
// does not cover f.
std::optional<Abcd> NetworkAbcd(const Session& session, double f);

// The first two-port block whose file does not cover the frequencies from
// `lowest` to `highest`, as a message naming the stage, the file and the range
// it covers; empty when every block covers them.
std::string BlockRangeProblem(const Session& session, double lowest, double highest);

}  // namespace kalvex
