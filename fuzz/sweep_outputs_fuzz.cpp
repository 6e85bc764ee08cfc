// A network file of any values, swept, into every text written from a sweep
// and into a SPICE deck: none may carry a number that is not finite.
#include "analysis/tabulate.h"
#include "files/network_file.h"
#include "files/spice_deck.h"
#include "files/sweep_data_file.h"
#include "files/touchstone.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string path = kalvex::fuzz::InputFile(data, size);
  kalvex::fuzz::SilentDialogs dialogs;
  kalvex::Session session;
  kalvex::InitialiseSession(session);
  if (!kalvex::ReadNetworkFile(session, dialogs, path)) return 0;
  session.FileName = "net.SSF";
  session.LoadSource = 1;
  std::string table;
  for (const std::string& row : kalvex::TabulateSweep(session)) table += row + "\n";
  kalvex::fuzz::RequireFiniteNumbers(table);
  kalvex::fuzz::RequireFiniteNumbers(kalvex::SweepDataText(session, "out", "now"));
  kalvex::fuzz::RequireFiniteNumbers(kalvex::TouchstoneText(session, "now"));
  kalvex::fuzz::RequireFiniteNumbers(kalvex::MakeSpiceDeck(session).text);
  return 0;
}
