#include "files/network_two_port_text.h"

#include <cmath>

#include "files/safe_write.h"
#include "files/text_file.h"
#include "model/network_abcd.h"
#include "model/number_text.h"
#include "model/sweep_indexes.h"

namespace kalvex {
namespace {

bool IsFinite(const SMatrix& m) {
  for (const auto& value : m.s) {
    if (!std::isfinite(value.real()) || !std::isfinite(value.imag())) return false;
  }
  return true;
}

}  // namespace

std::string NetworkTwoPortText(const Session& session, const std::string& dateTime) {
  std::string text = "! Kalvex " + session.Version + ", " + dateTime + "\n";
  text += "! the network without its load: port 1 the generator side, port 2 the load side\n";
  text += "# Hz S RI R " + ExactNumberText(session.SystemZ) + "\n";
  const SweepIndexes indexes = SweepIndexesOf(session);
  for (int k = indexes.first; k <= indexes.last; ++k) {
    const double f = session.SweepFreq[k];
    const std::optional<Abcd> network = NetworkAbcd(session, f);
    if (!(f > 0) || !network) continue;
    const SMatrix s = SOfAbcd(*network, session.SystemZ);
    if (!IsFinite(s)) continue;
    text += ExactNumberText(f);
    for (const auto& value : {s.S11(), s.S21(), s.S12(), s.S22()}) {
      text += " " + ExactNumberText(value.real()) + " " + ExactNumberText(value.imag());
    }
    text += "\n";
  }
  return text;
}

std::string WriteNetworkTwoPort(const Session& session, Dialogs& dialogs, const std::string& chosenName) {
  const std::string name = WithFileType(chosenName, ".s2p");
  if (name.empty()) return "";
  return WriteFileSafely(name, NetworkTwoPortText(session, dialogs.LocalDateTime()));
}

}  // namespace kalvex
