// Any bytes as the network's file name: the SPICE deck keeps the lines the
// program composes, the name only ever inside them, on one line.
#include <algorithm>

#include "files/spice_deck.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  kalvex::Session session;
  kalvex::InitialiseSession(session);
  session.ElementType[1] = kalvex::SeriesCapacitor;
  session.Value[1] = {0, 100e-12, 1000};
  session.FileName = "plain";
  const std::string plain = kalvex::MakeSpiceDeck(session).text;
  session.FileName.assign(reinterpret_cast<const char*>(data), size);
  const std::string named = kalvex::MakeSpiceDeck(session).text;
  const auto controls = std::count_if(named.begin(), named.end(), [](char c) {
    return c != '\n' && (static_cast<unsigned char>(c) < 0x20 || c == 0x7F);
  });
  if (controls > 0 || std::count(named.begin(), named.end(), '\n') !=
                          std::count(plain.begin(), plain.end(), '\n')) {
    __builtin_trap();
  }
  return 0;
}
