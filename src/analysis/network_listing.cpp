#include "analysis/network_listing.h"

#include <cmath>
#include <string>
#include <vector>

#include "analysis/redraw.h"
#include "design/schematic.h"
#include "design/symbols.h"
#include "model/format.h"

namespace kalvex {
namespace {

constexpr Colour kHighlightGreen = RGB(17, 255, 17);
constexpr Colour kSelectedLines = 2;  // nearly black: the selected cell's symbol
constexpr float kListingScale = 0.9f;

bool IsShownPart(int16_t type, double firstValue) {
  return IsPart(type) && firstValue > 0;
}

std::string WithPlus(double x) { return (x > 0 ? "+" : "") + FormatGeneral(x); }

// The value lines under a part, at the working frequency.
std::vector<std::string> PartLines(int16_t type, const std::array<double, kSlotCount>& v,
                                   double omega, const CableCatalogue& cables) {
  switch (type) {
    case SeriesCapacitor: case ShuntCapacitor:
      return {FormatCapacitance(v[1]), "-" + FormatGeneral(1 / (omega * v[1]))};
    case SeriesInductor: case ShuntInductor:
      return {FormatInductance(v[1]), FormatGeneral(omega * v[1])};
    case SeriesLine: case SeriesShortedStub: case SeriesOpenStub: case ShuntShortedStub:
    case ShuntOpenStub:
      return {FormatGeneral(v[1]) + " deg", "@ " + FormatSI(v[2]), FormatGeneral(v[3]) + " ohms"};
    case ShuntSeriesLC:
      return {FormatInductance(v[1]), FormatCapacitance(v[3]),
              WithPlus(omega * v[1] - 1 / (omega * v[3]))};
    case SeriesParallelLC:
      return {FormatInductance(v[1]), FormatCapacitance(v[3]),
              WithPlus(1 / (1 / (omega * v[1]) - omega * v[3]))};
    case CoaxialCable: case Transformer: case TwoPort: return PartValueLines(type, v, cables);
    default: return {FormatGeneral(v[1])};  // the resistors
  }
}

void Frame(Canvas& canvas, double left, double right, double listY, double bottomExtra) {
  canvas.SetLineWidth(3);
  canvas.OutlineRect({left, listY - 165}, {right, listY + kListingScale * 1040 + bottomExtra},
                     kHighlightGreen);
  canvas.SetLineWidth(1);
}

}  // namespace

void DrawNetworkListing(Session& session, Canvas& canvas) {
  if (session.Frequency <= 0) return;
  canvas.FillRect({1, 1},
                  {session.PartRightEdge[5] + session.ListingScale * 1040 + 400, 1800},
                  kPageBackground);
  canvas.SetFont(PageFontSize(kAnalysisPageHeight) / kPageUnitsPerPoint, false);
  session.ListingScale = kListingScale;
  SymbolPen pen(canvas, SymbolFamily::Strip, session.CoilArcRadius, kListingScale);
  pen.ListX = 400;
  pen.ListY = 180;
  pen.HighlightFlag = session.SelectedStage == 0 ? kSelectedLines : 0;

  const double x = session.Value[0][2];
  pen.DrawLoadSymbol(x);
  const std::string text = LoadValueText(session.Value[0][1], x);
  canvas.Text({x == 0 ? pen.ListX - 600 : ReactiveLoadLabelLeft(pen.ListX, text),
               pen.ListY + 1000},
              text);
  if (session.SelectedStage == 0) Frame(canvas, 150, pen.ListX - 30, pen.ListY, 45);
  session.PartRightEdge[0] = Rounded16(pen.ListX);
  canvas.Text({pen.ListX - 700, 1400}, "LOAD");
  pen.HighlightFlag = 0;

  const double omega = 2 * session.Pi * session.Frequency;
  for (int s = 1; s <= kLastStage; ++s) {
    if (session.SelectedStage == s) pen.HighlightFlag = kSelectedLines;
    auto separator = [&] {
      canvas.SetLineWidth(3);
      canvas.Line({pen.ListX, pen.ListY - 400}, {pen.ListX, pen.ListY + 1440}, kSeparatorBlue);
      canvas.SetLineWidth(1);
    };
    separator();
    const int16_t type = session.ElementType[s];
    if (IsShownPart(type, session.Value[s][1])) {
      separator();
      const std::vector<std::string> lines = PartLines(type, session.Value[s], omega, session.Cables);
      for (std::size_t line = 0; line < lines.size(); ++line) {
        canvas.Text({pen.ListX + 90, pen.ListY + 1000 + 200.0 * line}, lines[line]);
      }
      const double left = std::nearbyint(pen.ListX);
      if (type == ShuntResistor) {
        pen.DrawLead();
        pen.DrawLead();
      }
      pen.BlockName = BlockNameOf(session, s);
      pen.DrawElementSymbol(type);
      if (pen.HighlightFlag != 0) {
        Frame(canvas, left + 30, pen.ListX - 30, pen.ListY, type == SeriesCapacitor ? 30 : 45);
      }
    }
    pen.HighlightFlag = 0;
    session.PartRightEdge[s] = Rounded16(pen.ListX);
  }
  pen.DrawGenerator(session.SystemZ);
  DrawColourBars(session, canvas);
}

bool AnyPartShown(const Session& session) {
  for (int s = 1; s <= kLastStage; ++s) {
    if (IsShownPart(session.ElementType[s], session.Value[s][1])) return true;
  }
  return false;
}

void DrawColourBars(const Session& session, Canvas& canvas) {
  if (session.ArcsMode != 2) return;
  static constexpr Colour kKey[] = {0, RGB(17, 17, 255), RGB(255, 17, 17), RGB(17, 255, 17),
                                    RGB(238, 153, 17), RGB(136, 221, 221)};
  for (int s = 1; s <= kLastStage; ++s) {
    if (session.ElementType[s] <= 0) continue;
    canvas.FillRect({static_cast<double>(session.PartRightEdge[s - 1]), 0},
                    {static_cast<double>(session.PartRightEdge[s]), 75}, kKey[s]);
  }
}

int PartAt(const Session& session, double x) {
  const auto& edge = session.PartRightEdge;
  if (x > edge[5]) return -1;
  for (int s = 5; s >= 1; --s) {
    if (x > edge[s - 1]) return s;
  }
  return x > edge[0] - 1600 ? 0 : -1;
}

}  // namespace kalvex
