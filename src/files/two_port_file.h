#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "model/two_port.h"

namespace kalvex {

// What reading a two-port block's file gave: its data, or why there is none
// (a message that names the file).
struct TwoPortReading {
  std::shared_ptr<const TwoPortTable> table;
  std::string problem;
};

// The most frequencies a block's file may hold.
inline constexpr std::size_t kMaxBlockPoints = 100'000;

// Reads a two-port Touchstone text: version 1 (".s2p", option line
// "# <unit> <S|Y|Z> <RI|MA|DB> R <n>", defaults GHz S MA R 50, data in the
// order S11 S21 S12 S22, Z and Y normalised to R) or version 2 ("[Version]
// 2.0", "[Number of Ports] 2", "[Two-Port Data Order] 12_21|21_12", "[Matrix
// Format] Full|Lower|Upper", "[Reference]" with one impedance per port, Z and Y
// in ohms and siemens, "[Network Data]" up to "[Noise Data]" or "[End]").
// "!" starts a comment; a record of data may run over several lines. Version 1
// noise data, which starts again at a lower frequency, ends the network data.
// The frequencies must rise; every number must be finite. The S parameters
// are kept at port 1's reference, the other port's turned to it.
TwoPortReading ReadTwoPortText(const std::string& name, std::string_view contents);

// The file at `path` through ReadTwoPortText, with the readers' size limit.
TwoPortReading ReadTwoPortFile(const std::string& path);

}  // namespace kalvex
