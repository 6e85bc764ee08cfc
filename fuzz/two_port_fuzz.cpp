// The two-port block reader, and a block from whatever it gave carried
// through the calculation and out as the network's two-port file.
#include "files/network_two_port_text.h"
#include "files/two_port_file.h"
#include "model/calculate.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const kalvex::TwoPortReading reading = kalvex::ReadTwoPortText("fuzz.s2p", text);
  if (!reading.table) return 0;
  kalvex::Session session;
  kalvex::InitialiseSession(session);
  session.LoadSource = 1;
  session.ElementType[1] = kalvex::TwoPort;
  session.TwoPortBlocks[1] = {"fuzz.s2p", reading.table};
  for (const double placement : {1.0, 2.0, 3.0}) {
    session.Value[1][1] = placement;
    session.Frequency = reading.table->Lowest();
    kalvex::CalculateNetwork(session, 0);
    session.Frequency = (reading.table->Lowest() + reading.table->Highest()) / 2;
    kalvex::CalculateNetwork(session, 0);
  }
  session.SweepPoints = 1;
  session.SweepFreq[0] = reading.table->Highest();
  kalvex::fuzz::RequireFiniteNumbers(kalvex::NetworkTwoPortText(session, "now"));
  return 0;
}
