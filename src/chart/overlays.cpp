#include "chart/overlays.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "chart/chart_view.h"
#include "model/number_text.h"

namespace kalvex {
namespace {

constexpr Colour kQArcTeal = RGB(17, 187, 187);
constexpr Colour kVSWRRed = RGB(136, 17, 17);
constexpr double kDegree = std::numbers::pi / 180;

// One Q arc, a = 0..180 degrees in steps of 0.1: u = k cos a, v = sign (k sin a − 1/Q).
// Each point takes its own colour, white beyond the chart's left and right ends.
void DrawQArc(Session& session, Canvas& canvas, const ChartView& view, double q, double sign) {
  const double k = std::sqrt(1 / (q * q) + 1);
  const double halfWidth = view.aspect * view.radius;
  for (double a = 0; a <= 180; a += 0.1) {
    const Point p = view.GammaToPage({k * std::cos(a * kDegree), sign * (k * std::sin(a * kDegree) - 1 / q)});
    const bool beyond = p.x >= view.centreX + halfWidth || p.x <= view.centreX - halfWidth;
    session.QArcColour = beyond ? kWhite : kQArcTeal;
    if (a == 0) {
      canvas.MoveTo(p);
    } else {
      canvas.LineTo(p, session.QArcColour);
    }
  }
}

}  // namespace

void DrawQArcs(Session& session, Canvas& canvas) {
  if (session.QArcsOn == 0) return;
  if (session.QCircle > kMaxQCircle) session.QCircle = kMaxQCircle;
  if (session.QCircle == 0) session.QCircle = 2;
  if (session.QCircle < kMinQCircle) session.QCircle = kMinQCircle;
  const ChartView view = ChartView::Of(session);
  DrawQArc(session, canvas, view, session.QCircle, +1);
  DrawQArc(session, canvas, view, session.QCircle, -1);
  canvas.Text({5300, 8340}, "Q=" + PlainNumberText(session.QCircle, kSingleDigits));
}

void DrawVSWRCircle(const Session& session, Canvas& canvas) {
  if (session.VSWRCircleOn == 0) return;
  const double vswr = std::clamp(session.VSWRCircle, kMinVSWRCircle, kMaxVSWRCircle);
  const double rho = (vswr - 1) / (vswr + 1);
  const ChartView view = ChartView::Of(session);
  canvas.MoveTo(view.GammaToPage({rho, 0}));
  for (int degrees = 5; degrees <= 360; degrees += 5) {
    const double a = degrees * kDegree;
    canvas.LineTo(view.GammaToPage({rho * std::cos(a), rho * std::sin(a)}), kVSWRRed);
  }
  canvas.Text({5300, 8140}, "VSWR=" + PlainNumberText(static_cast<float>(vswr), kSingleDigits));
}

}  // namespace kalvex
