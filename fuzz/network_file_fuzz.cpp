// The network file and the last-session file: one layout, two readers.
#include "files/network_file.h"
#include "fuzz_input.h"
#include "model/calculate.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string path = kalvex::fuzz::InputFile(data, size);
  kalvex::fuzz::SilentDialogs dialogs;
  kalvex::Session session;
  kalvex::InitialiseSession(session);
  if (kalvex::ReadNetworkFile(session, dialogs, path)) {
    session.LoadSource = 1;
    kalvex::CalculateNetwork(session, 0);
  }
  kalvex::ReadLastSession(session, path);
  return 0;
}
