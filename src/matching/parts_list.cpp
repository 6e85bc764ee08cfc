#include "matching/parts_list.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>

#include "model/cable_names.h"
#include "model/feed_parts.h"
#include "model/two_port_block.h"

namespace kalvex {
namespace {

std::string Figures(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.4g", value);
  return text;
}

std::string CableText(const CableSlots& cable, const CableCatalogue& catalogue) {
  const std::string length = Figures(cable.lengthMetres) + " m";
  if (const CatalogueCable* named = CatalogueCableOf(catalogue, cable)) return named->name + " " + length;
  return length + " of " + Figures(cable.characteristicZ) + " ohm VF " + Figures(cable.velocityFactor) + " k1 " +
         Figures(cable.k1) + " k2 " + Figures(cable.k2) + " dB/100 m";
}

std::string TransformerText(const TransformerSlots& transformer) {
  std::string text = Figures(transformer.ratio) + ":1";
  if (transformer.magnetisingH > 0) text += " Lm " + EngineeringValue(transformer.magnetisingH, "H");
  if (transformer.leakageH > 0) text += " Ll " + EngineeringValue(transformer.leakageH, "H");
  return text;
}

// A field as CSV takes it: quoted where a user's cable name holds a comma or a quote.
std::string CsvField(const std::string& text) {
  if (text.find_first_of(",\"") == std::string::npos) return text;
  std::string quoted = "\"";
  for (const char c : text) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
  return quoted + "\"";
}

std::string ValueOf(const Session& session, const NetworkPart& part) {
  const auto& v = session.Value[part.stage];
  switch (part.kind) {
    case PartKind::Capacitor: return EngineeringValue(v[part.slot], "F");
    case PartKind::Inductor: return EngineeringValue(v[part.slot], "H");
    case PartKind::Resistor: return EngineeringValue(v[part.slot], "ohm");
    case PartKind::Line:
      return Figures(v[1]) + " deg at " + EngineeringValue(v[2], "Hz") + " " + EngineeringValue(v[3], "ohm");
    case PartKind::Cable: return CsvField(CableText(CableOf(v), session.Cables));
    case PartKind::Transformer: return TransformerText(TransformerOf(v));
  }
  return {};
}

// A two-port block is bought or measured as its file says: the file's own
// name (not the folder it was read from) and how it sits. No series, and no
// tolerance: the file holds the part as it is.
std::string BlockText(const Session& session, int stage) {
  const std::string name = std::filesystem::path(session.TwoPortBlocks[stage].file).filename().string();
  const BlockSlots block = BlockOf(session.Value[stage]);
  return CsvField(name + " " + PlacementText(block) + (block.swapped ? ", ports swapped" : ""));
}

std::string PartOf(const Session& session, const NetworkPart& part) {
  const int16_t type = session.ElementType[part.stage];
  const bool pair = type == ShuntSeriesLC || type == SeriesParallelLC;
  return std::string(PartName(type)) + (pair ? part.kind == PartKind::Inductor ? " L" : " C" : "");
}

}  // namespace

std::string EngineeringValue(double value, const std::string& unit) {
  static const char* const kPrefixes[] = {"f", "p", "n", "u", "m", "", "k", "M", "G", "T"};
  constexpr int kUnitIndex = 5;
  int index = kUnitIndex;
  if (value != 0 && std::isfinite(value)) {
    index += static_cast<int>(std::floor(std::log10(std::fabs(value)) / 3));
    // Rounding to four figures may carry into the next prefix: 999.96 n is 1 u.
    if (std::fabs(value) / std::pow(1000.0, index - kUnitIndex) >= 999.95) ++index;
    index = std::clamp(index, 0, static_cast<int>(std::size(kPrefixes)) - 1);
  }
  return Figures(value / std::pow(1000.0, index - kUnitIndex)) + " " + kPrefixes[index] + unit;
}

std::string PartsListCsv(const Session& session, const Tolerances& tolerances) {
  std::string csv = "stage,part,value,series,tolerance\n";
  const std::vector<NetworkPart> parts = PartsOf(session);
  for (int stage = 1; stage <= kLastStage; ++stage) {
    if (session.ElementType[stage] == TwoPort) {
      csv += std::to_string(stage) + ",two-port block," + BlockText(session, stage) + ",,\n";
      continue;
    }
    for (const NetworkPart& part : parts) {
      if (part.stage != stage) continue;
      const auto series = HasStandardValues(part.kind) ? SmallestSeriesHolding(session.Value[stage][part.slot])
                                                       : std::nullopt;
      csv += std::to_string(stage) + "," + PartOf(session, part) + "," + ValueOf(session, part) + "," +
             (series ? SeriesName(*series) : "") + "," + Figures(tolerances.Of(part.kind)) + " %\n";
    }
  }
  return csv;
}

}  // namespace kalvex
