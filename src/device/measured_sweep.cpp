#include "device/measured_sweep.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>

#include "device/sweep_plan.h"
#include "model/number_text.h"

namespace kalvex {

std::complex<double> ImpedanceOfS11(std::complex<double> s11) {
  return kAnalyserReference * (1.0 + s11) / (1.0 - s11);
}

MeasuredSweep AverageSweeps(const std::vector<MeasuredSweep>& sweeps) {
  struct Sum {
    std::complex<double> s11;
    int count = 0;
  };
  std::map<double, Sum> sums;
  MeasuredSweep mean;
  for (const MeasuredSweep& sweep : sweeps) {
    mean.leftOutLines += sweep.leftOutLines;
    for (const MeasuredPoint& point : sweep.points) {
      Sum& sum = sums[point.frequency];
      sum.s11 += point.s11;
      ++sum.count;
    }
  }
  for (const auto& [frequency, sum] : sums) mean.points.push_back({frequency, sum.s11 / double(sum.count)});
  return mean;
}

namespace {

// A comment stays on its one line: control characters become blanks.
std::string OneLine(std::string text) {
  std::replace_if(text.begin(), text.end(), [](unsigned char c) { return c < 0x20 || c == 0x7f; }, ' ');
  return text;
}

// Whole hertz as whole numbers ("14000000", not "1.4e+07"), as the analyser
// gives them; anything else exactly.
std::string FrequencyText(double hertz) {
  if (hertz == std::floor(hertz) && std::abs(hertz) < 1e15) return std::to_string(static_cast<int64_t>(hertz));
  return ExactNumberText(hertz);
}

}  // namespace

std::string MeasuredTouchstone(const MeasuredSweep& sweep, const std::vector<std::string>& comments) {
  std::string text;
  for (const std::string& comment : comments) text += "! " + OneLine(comment) + "\n";
  text += "# Hz S RI R " + ExactNumberText(kAnalyserReference) + "\n";
  for (const MeasuredPoint& point : sweep.points) {
    text += FrequencyText(point.frequency) + " " + ExactNumberText(point.s11.real()) + " " +
            ExactNumberText(point.s11.imag()) + "\n";
  }
  return text;
}

int TakeMeasuredLoad(Session& session, const MeasuredSweep& sweep) {
  const int before = session.LoadSource == 2 ? session.SweepPoints : 0;
  int n = 0;
  for (const MeasuredPoint& point : sweep.points) {
    const std::complex<double> z = ImpedanceOfS11(point.s11);
    if (n == kMostMeasuredPoints || !std::isfinite(z.real()) || !std::isfinite(z.imag())) continue;
    ++n;
    session.LoadFreq[n] = point.frequency;
    session.LoadR[n] = z.real();
    session.LoadX[n] = z.imag();
  }
  if (n == 0) return 0;
  session.LoadSource = 2;
  session.SweepPoints = static_cast<int16_t>(n);
  session.SweepStart = session.LoadFreq[1];
  session.SweepStop = session.LoadFreq[n];
  // The working point stays where the user put it while sweeps of the same
  // size follow one another.
  if (before != n || session.DataIndex < 1 || session.DataIndex > n) {
    session.DataIndex = static_cast<int16_t>(n / 2 + 1);
  }
  session.Frequency = session.LoadFreq[session.DataIndex];
  session.Value[0][1] = session.LoadR[session.DataIndex];
  session.Value[0][2] = session.LoadX[session.DataIndex];
  return n;
}

void RestoreLoad(Session& session, const NetworkState& before) {
  session.LoadSource = before.loadSource;
  session.DataIndex = before.dataIndex;
  session.Frequency = before.frequency;
  session.Value[0] = before.value[0];
  session.SweepStart = before.sweepStart;
  session.SweepStop = before.sweepStop;
  session.SweepPoints = before.sweepPoints;
  session.LoadFreq = before.loadFreq;
  session.LoadR = before.loadR;
  session.LoadX = before.loadX;
}

}  // namespace kalvex
