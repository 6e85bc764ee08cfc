// The load-data file, and the sweep over whatever points it gave.
#include "analysis/sweep.h"
#include "files/load_data_file.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string path = kalvex::fuzz::InputFile(data, size);
  kalvex::fuzz::SilentDialogs dialogs;
  kalvex::Session session;
  kalvex::InitialiseSession(session);
  if (kalvex::ApplyLoadDataFile(session, dialogs, path)) {
    kalvex::RunSweepPoints(session, kalvex::SweepUse::Table);
  }
  return 0;
}
