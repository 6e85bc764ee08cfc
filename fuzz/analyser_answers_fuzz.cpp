// The analyser's answers: each command the conversation sends is answered by
// its echo, the next piece of the input (pieces split at NUL bytes) and the
// prompt, for a plan of a few points in two scans; every point kept must be a
// measurement of the plan, and the sweep must make load data and a file.
#include <cmath>
#include <string_view>

#include "device/analyser_link.h"
#include "device/measured_sweep.h"
#include "fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::string_view input(reinterpret_cast<const char*>(data), size);
  const kalvex::SweepPlan plan{13e6, 15e6, 5};
  kalvex::AnalyserLink link(plan, 2, 0);
  auto session = std::make_unique<kalvex::Session>();
  kalvex::InitialiseSession(*session);
  for (int answers = 0; answers < 64 && !link.Done() && !link.Failed(); ++answers) {
    std::string command = link.TakeOutgoing();
    if (command.empty()) break;
    command.pop_back();  // its CR
    const std::size_t end = std::min(input.find('\0'), input.size());
    link.Receive(command + "\r\n" + std::string(input.substr(0, end)) + "\r\nch> ", answers);
    input.remove_prefix(std::min(end + 1, input.size()));
    if (const auto sweep = link.TakeSweep()) {
      double last = 0;
      for (const kalvex::MeasuredPoint& point : sweep->points) {
        if (!(point.frequency > last && point.frequency <= plan.stop + 2) || !(std::abs(point.s11) <= 10)) {
          __builtin_trap();
        }
        last = point.frequency;
      }
      kalvex::TakeMeasuredLoad(*session, *sweep);
      kalvex::fuzz::RequireFiniteNumbers(kalvex::MeasuredTouchstone(*sweep, {"fuzz"}));
    }
  }
  return 0;
}
