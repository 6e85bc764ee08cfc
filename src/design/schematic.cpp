#include "design/schematic.h"

#include <cmath>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "design/symbols.h"
#include "model/feed_parts.h"
#include "files/text_file.h"
#include "model/format.h"
#include "model/trim.h"

namespace kalvex {
namespace {


void DrawLoadLabel(const Session& session, SymbolPen& pen, Canvas& canvas) {
  const std::string text = LoadValueText(session.Value[0][1], session.Value[0][2]);
  const double left = session.Value[0][2] == 0 ? pen.ListX - 800
                                               : ReactiveLoadLabelLeft(pen.ListX, text);
  canvas.Text({left, pen.ListY + 1200}, text);
  canvas.Text({pen.ListX - 700, pen.ListY + 1400}, "LOAD");
}

// The value lines under a stage, or nothing when its values are unusable.
std::optional<std::vector<std::string>> StageLabels(int16_t type, const std::array<double, kSlotCount>& v,
                                                    const CableCatalogue& cables) {
  switch (type) {
    case Empty: return std::vector<std::string>{"(Wire)"};
    case SeriesCapacitor:
    case ShuntCapacitor:
      if (v[1] <= 0 || v[2] <= 0) return std::nullopt;
      break;
    case SeriesLine:
    case SeriesShortedStub:
    case SeriesOpenStub:
    case ShuntShortedStub:
    case ShuntOpenStub:
      if (v[1] <= 0 || v[2] <= 0 || v[3] <= 0) return std::nullopt;
      break;
    case ShuntSeriesLC:
    case SeriesParallelLC:
      if (v[1] <= 0 || v[3] <= 0) return std::nullopt;
      break;
    case SeriesResistor:
    case ShuntResistor:
    case Transformer:
      if (v[1] <= 0) return std::nullopt;
      break;
    case CoaxialCable:
      if (v[1] <= 0 || v[2] <= 0 || v[3] <= 0) return std::nullopt;
      break;
    default: break;
  }
  return PartValueLines(type, v, cables);
}

}  // namespace

std::vector<std::string> PartValueLines(int16_t type, const std::array<double, kSlotCount>& v,
                                        const CableCatalogue& cables) {
  switch (type) {
    case SeriesCapacitor:
    case ShuntCapacitor: return {FormatCapacitance(v[1]), "Q: " + FormatGeneral(v[2])};
    case SeriesInductor:
    case ShuntInductor: return {FormatInductance(v[1]), "Q: " + FormatGeneral(v[2])};
    case SeriesLine:
    case SeriesShortedStub:
    case SeriesOpenStub:
    case ShuntShortedStub:
    case ShuntOpenStub:
      return {FormatGeneral(v[1]) + " deg", "@ " + FormatSI(v[2]), FormatGeneral(v[3]) + " ohms"};
    case ShuntSeriesLC:
    case SeriesParallelLC:
      return {FormatInductance(v[1]), "Q: " + FormatGeneral(v[2]), FormatCapacitance(v[3]),
              "Q: " + FormatGeneral(v[4])};
    case SeriesResistor:
    case ShuntResistor: return {FormatGeneral(v[1])};
    case CoaxialCable: {
      const std::string length = FormatGeneral(v[1]) + " m";
      if (const CatalogueCable* named = CatalogueCableOf(cables, CableOf(v))) return {length, named->name};
      return {length, FormatGeneral(v[2]) + " ohms", "VF " + FormatGeneral(v[3])};
    }
    case TwoPort: {
      const BlockSlots block = BlockOf(v);
      std::vector<std::string> lines{PlacementText(block)};
      if (block.swapped) lines.push_back("ports swapped");
      return lines;
    }
    case Transformer: {
      std::vector<std::string> lines{Trimmed(FormatGeneral(v[1])) + ":1"};
      if (v[2] > 0) lines.push_back("Lm " + FormatInductance(v[2]));
      if (v[3] > 0) lines.push_back("Ll " + FormatInductance(v[3]));
      return lines;
    }
    default: return {};
  }
}

std::string BlockNameOf(const Session& session, int stage) {
  return PrintableText(std::filesystem::path(session.TwoPortBlocks[stage].file).filename().string());
}

std::string LoadValueText(double r, double x) {
  if (x == 0) return FormatGeneral(r);
  return FormatGeneral(r) + (x > 0 ? " +j" : " -j") + FormatGeneral(std::fabs(x));
}

double ReactiveLoadLabelLeft(double cellEnd, const std::string& text) {
  const std::size_t valueCharacters = text.size() - 3;  // without " +j"
  return cellEnd - 600 - 60.0 * valueCharacters;
}

StagePositions DrawNetwork(Session& session, Canvas& canvas, float coilArcRadius) {
  canvas.FillRect({100, 300}, {11500, 3200}, kPageBackground);
  canvas.FillRect({9100, 2800}, {11000, 4800}, kPageBackground);
  SymbolPen pen(canvas, SymbolFamily::Design, coilArcRadius);
  pen.ListX = 1500;
  pen.ListY = 700;
  pen.DrawLoadSymbol(session.Value[0][2]);
  DrawLoadLabel(session, pen, canvas);

  StagePositions stageX{};
  stageX[1] = Rounded16(pen.ListX + 150);
  for (int s = 1; s <= kLastStage; ++s) {
    const int16_t type = session.ElementType[s];
    if (type == Empty || type == InsertPlaceholder || IsPart(type)) {
      pen.DrawStageSeparator();
      const auto labels = StageLabels(type, session.Value[s], session.Cables);
      if (!labels) {
        session.ElementType[s] = Empty;  // shown as "(Wire)" from the next drawing on
        pen.DrawElementSymbol(Empty);
      } else {
        for (std::size_t line = 0; line < labels->size(); ++line) {
          canvas.Text({pen.ListX, pen.ListY + 1200 + 200.0 * line}, (*labels)[line]);
        }
        pen.BlockName = BlockNameOf(session, s);
        if (type == ShuntResistor) {
          pen.DrawPaddedShuntResistor();
        } else {
          pen.DrawElementSymbol(type);
        }
      }
    }
    stageX[s + 1] = Rounded16(pen.ListX + 150);
  }
  pen.DrawStageSeparator();
  pen.DrawGenerator(session.SystemZ);
  return stageX;
}

void DrawLibrary(Canvas& canvas, float coilArcRadius) {
  SymbolPen pen(canvas, SymbolFamily::Design, coilArcRadius);
  pen.ListX = 2500;
  pen.ListY = 5600;
  pen.DrawElementSymbol(Empty);
  for (const int type : {1, 2, 3, 4, 5, 6}) {
    pen.DrawLibrarySeparator();
    pen.DrawElementSymbol(type);
  }

  pen.ListX = 2500;
  pen.ListY = 7300;
  pen.DrawElementSymbol(SeriesOpenStub);
  for (const int type : {8, 9, 10, 11, 12, 13, 14}) {
    pen.DrawLibrarySeparator();
    if (type == ShuntSeriesLC) {
      pen.DrawLead();
      pen.DrawElementSymbol(type);
      pen.DrawLead();
    } else if (type == ShuntResistor) {
      pen.DrawPaddedShuntResistor();
    } else {
      pen.DrawElementSymbol(type);
    }
  }
}

StagePositions DrawDesignPage(Session& session, Canvas& canvas, float coilArcRadius) {
  canvas.Clear(kPageBackground);
  const StagePositions stageX = DrawNetwork(session, canvas, coilArcRadius);
  DrawLibrary(canvas, coilArcRadius);
  return stageX;
}

}  // namespace kalvex
