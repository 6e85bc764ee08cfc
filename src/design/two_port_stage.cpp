#include "design/two_port_stage.h"

#include "files/two_port_file.h"

namespace kalvex {

std::string PlaceTwoPortBlock(Session& session, const TwoPortChoice& choice) {
  if (choice.stage < 1 || choice.stage > kLastStage) return "A block goes into stage 1 to 5.";
  const TwoPortReading reading = ReadTwoPortFile(choice.file);
  if (!reading.table) return reading.problem;
  const int s = choice.stage;
  session.ElementType[s] = TwoPort;
  session.Value[s] = {};
  session.Value[s][1] = static_cast<double>(choice.placement);
  session.Value[s][2] = choice.swapped ? 1 : 0;
  session.Value[s][3] = choice.port2Shorted ? 1 : 0;
  session.TwoPortBlocks[s] = {choice.file, reading.table};
  return "";
}

int FirstFreeStage(const Session& session) {
  for (int s = 1; s <= kLastStage; ++s) {
    if (!IsPart(session.ElementType[s])) return s;
  }
  return 1;
}

}  // namespace kalvex
