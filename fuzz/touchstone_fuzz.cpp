// The Touchstone reader (a load-data file named ".s1p"), and the sweep over
// whatever points it gave, into the texts that are written from them.
#include "analysis/sweep.h"
#include "files/load_data_file.h"
#include "files/sweep_data_file.h"
#include "files/touchstone.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string path = kalvex::fuzz::InputFile(data, size, ".s1p");
  kalvex::fuzz::SilentDialogs dialogs;
  kalvex::Session session;
  kalvex::InitialiseSession(session);
  if (kalvex::ApplyLoadDataFile(session, dialogs, path)) {
    kalvex::RunSweepPoints(session, kalvex::SweepUse::Table);
    kalvex::fuzz::RequireFiniteNumbers(kalvex::TouchstoneText(session, "now"));
    kalvex::fuzz::RequireFiniteNumbers(kalvex::SweepDataText(session, "out", "now"));
  }
  return 0;
}
