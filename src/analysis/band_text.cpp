#include "analysis/band_text.h"

#include <cmath>

#include "model/format.h"
#include "model/network_state.h"
#include "model/number_text.h"
#include "model/trim.h"

namespace kalvex {
namespace {

std::string Frequency(const std::optional<double>& f) {
  return f ? std::string(Trim(FormatSI(*f), " ")) + "Hz" : "none";
}

// As the status line shows them: a reflection below kMatchedReflection is 0
// and its return loss "> 120 dB", not the rounding's 4e-24 and 467 dB.
std::string GammaText(double gamma) {
  return gamma < kMatchedReflection ? std::string("0") : FormattedNumber("%.4g", gamma);
}

std::string ReturnLossText(double db) {
  return db >= kMatchedReturnLossDb ? std::string("> 120 dB") : FormattedNumber("%.3f dB", db);
}

std::string FitLine(const char* form, const BodeFanoFit& fit) {
  if (fit.lossless) {
    return std::string(form) + ": the load is lossless (R = 0), |Gamma| = 1: no match is possible over a band\n";
  }
  if (fit.reactive == 0) return std::string(form) + ": the load is a plain resistance, no limit\n";
  if (!std::isfinite(fit.gamma)) return std::string(form) + ": no bound for a load without resistance\n";
  const std::string part = fit.capacitive ? std::string(Trim(FormatCapacitance(fit.reactive), " "))
                                          : std::string(Trim(FormatInductance(fit.reactive), " "));
  return std::string(form) + " R" + (fit.capacitive ? "C" : "L") + " (" +
         FormattedNumber("%.4g", fit.r) + " ohms, " + std::string(Trim(part, " ")) + "): |Gamma| >= " +
         GammaText(fit.gamma) + ", VSWR " + FormattedNumber("%.4g", fit.vswr) + ", return loss " +
         (fit.returnLoss ? ReturnLossText(*fit.returnLoss) : std::string("none")) + "\n";
}

}  // namespace

std::string BandReport(const BandFigures& figures) {
  std::string text = "Band " + Frequency(figures.low) + " to " + Frequency(figures.high) +
                     ", working frequency " + Frequency(figures.workingFrequency) + ", load model " +
                     LoadModelName(figures.loadModel) + "\n";
  text += "Worst: VSWR " + FormattedNumber("%.4g", figures.worst.vswr) + ", return loss " +
          ReturnLossText(figures.worst.returnLoss) + " at " + Frequency(figures.worst.frequency) + "\n";
  text += "Best:  VSWR " + FormattedNumber("%.4g", figures.best.vswr) + ", return loss " +
          ReturnLossText(figures.best.returnLoss) + " at " + Frequency(figures.best.frequency) + "\n";
  for (const BandEdges& e : figures.edges) {
    text += "VSWR " + FormattedNumber("%g", e.vswr) + ": " + Frequency(e.low) + " to " + Frequency(e.high) +
            (e.hertz ? ", " + Frequency(e.hertz) + " wide, " + FormattedNumber("%.3f %%", *e.percent) : "") + "\n";
  }
  text += "Bode-Fano bound over the band:\n";
  text += FitLine("  series", figures.series) + FitLine("  parallel", figures.parallel);
  if (figures.boundUsed) text += "The network reaches " + FormattedNumber("%.1f %%", 100 * *figures.boundUsed) + " of the bound\n";
  text += "Loss in the network at " + Frequency(figures.workingFrequency) + ": " +
          (figures.lossDb ? FormattedNumber("%.3f dB", *figures.lossDb) : std::string("none (no power reaches the load)")) +
          "\n";
  for (const CableLoss& cable : figures.cableLosses) {
    text += "  stage " + std::to_string(cable.stage) + " coaxial cable, matched: " +
            FormattedNumber("%.3f dB", cable.matchedDb) + "\n";
  }
  return text;
}

}  // namespace kalvex
