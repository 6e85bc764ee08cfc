#include "files/defaults_file.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  kalvex::Session session;
  kalvex::InitialiseSession(session);
  kalvex::ReadDefaults(session, kalvex::fuzz::InputFile(data, size));
  return 0;
}
