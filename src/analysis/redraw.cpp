#include "analysis/redraw.h"

#include <cmath>
#include <numbers>

#include "analysis/network_listing.h"
#include "analysis/sweep_on_chart.h"
#include "chart/chart_view.h"
#include "chart/grids.h"
#include "chart/network_path.h"
#include "chart/overlays.h"
#include "model/vector_state.h"
#include "model/number_text.h"
#include "model/trim.h"

namespace kalvex {
namespace {

constexpr Colour kPaleRed = RGB(255, 153, 153);
constexpr Colour kPaleGreen = RGB(102, 255, 102);

enum class Grids { Impedance, AdmittanceThenImpedance, ImpedanceThenAdmittance, Admittance, None };

struct GridStyle {
  Grids grids;
  Colour admittance;  // 0: left as it was
  Colour impedance;
  Colour outline;
};

GridStyle StyleOf(int16_t gridType) {
  switch (gridType) {
    case 2: return {Grids::AdmittanceThenImpedance, kPaleGreen, kStrongRed, kStrongRed};
    case 3: return {Grids::AdmittanceThenImpedance, kStrongGreen, kStrongRed, kStrongGreen};
    case 4: return {Grids::ImpedanceThenAdmittance, kStrongGreen, kPaleRed, kStrongGreen};
    case 5: return {Grids::Admittance, kStrongGreen, 0, kStrongGreen};
    case 6: return {Grids::None, kStrongRed, 0, kStrongRed};
    default: return {Grids::Impedance, 0, kStrongRed, kStrongRed};
  }
}

}  // namespace

std::string ChartCaption(double systemZ) {
  return "Chart normalized to " + std::string(Trim(PrintNumberText(systemZ, 15))) + " ohms";
}

void StepGridType(Session& session) {
  session.GridType = static_cast<int16_t>(session.GridType + 1);
  if (session.GridType > 6) session.GridType = 1;
}

namespace {

void DrawFace(const ChartView& view, Canvas& canvas) {
  canvas.FillEllipse({view.centreX, view.centreY}, view.aspect * view.radius, view.radius, kWhite);
}

void DrawGrids(Session& session, const ChartView& view, const GridStyle& style, Canvas& canvas) {
  canvas.SetLineWidth(1);
  if (style.admittance != 0) session.AdmittanceGridColour = style.admittance;
  if (style.impedance != 0) session.ImpedanceGridColour = style.impedance;
  const Colour admittance = session.AdmittanceGridColour;
  const Colour impedance = session.ImpedanceGridColour;
  switch (style.grids) {
    case Grids::Impedance: DrawImpedanceGrid(canvas, view, impedance); break;
    case Grids::AdmittanceThenImpedance:
      DrawAdmittanceGrid(canvas, view, admittance);
      DrawImpedanceGrid(canvas, view, impedance);
      break;
    case Grids::ImpedanceThenAdmittance:
      DrawImpedanceGrid(canvas, view, impedance);
      DrawAdmittanceGrid(canvas, view, admittance);
      break;
    case Grids::Admittance: DrawAdmittanceGrid(canvas, view, admittance); break;
    case Grids::None: break;
  }
}

void DrawAxis(const ChartView& view, Colour colour, Canvas& canvas) {
  const double halfWidth = view.aspect * view.radius;
  canvas.SetLineWidth(1);
  canvas.Line({view.centreX - halfWidth, view.centreY}, {view.centreX + halfWidth, view.centreY},
              colour);
}

// The rim: 120 chords, line width 2.
void DrawOutline(const ChartView& view, Colour colour, Canvas& canvas) {
  canvas.SetLineWidth(2);
  for (int degrees = 0; degrees <= 360; degrees += 3) {
    const double a = degrees * std::numbers::pi / 180;
    const Point p{view.centreX + view.aspect * view.radius * std::cos(a),
                  view.centreY + view.radius * std::sin(a)};
    if (degrees == 0) {
      canvas.MoveTo(p);
    } else {
      canvas.LineTo(p, colour);
    }
  }
  canvas.SetLineWidth(1);
}

void DrawCaption(const Session& session, Canvas& canvas) {
  canvas.SetTextColour(0);
  canvas.Text({5300, 7940}, ChartCaption(session.SystemZ));
}

}  // namespace

void RedrawChart(Session& session, Canvas& canvas) {
  ClearUpperVectorState();
  const ChartView view = ChartView::Of(session);
  const GridStyle style = StyleOf(session.GridType);
  canvas.Clear(kPageBackground);              // 1
  DrawFace(view, canvas);                      // 2
  DrawGrids(session, view, style, canvas);     // 3
  DrawAxis(view, style.outline, canvas);       // 4
  DrawOutline(view, style.outline, canvas);    // 5
  DrawCaption(session, canvas);                // 6
  canvas.EndOfBackground();
  DrawNetworkListing(session, canvas);         // 7
  DrawNetworkArcs(session, canvas);            // 8
  DrawColourBars(session, canvas);             //   and the strip's colour key again
  DrawQArcs(session, canvas);                  // 9
  DrawVSWRCircle(session, canvas);             // 10
  RunSweep(session, canvas);                   // 11
}

void RefreshAnalysis(Session& session, Canvas& canvas) {
  DrawNetworkListing(session, canvas);
  RedrawChart(session, canvas);
}

}  // namespace kalvex
