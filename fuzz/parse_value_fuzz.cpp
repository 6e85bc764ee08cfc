// The value parser, and the number texts written back from what it read.
#include <string_view>

#include "model/format.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const double value = kalvex::ParseValue(text);
  kalvex::ParseValueUnlimited(text);
  kalvex::FormatSI(value);
  kalvex::FormatGeneral(value);
  kalvex::FormatSmallSI(value);
  kalvex::FormatCapacitance(value);
  kalvex::FormatInductance(value);
  return 0;
}
