#include "chart/overlays.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "chart/chart_view.h"
#include "chart/grids.h"
#include "model/number_text.h"

namespace kalvex {
namespace {

constexpr double kDegree = std::numbers::pi / 180;

}  // namespace

void ClampQCircle(Session& session) {
  if (session.QCircle > kMaxQCircle) session.QCircle = kMaxQCircle;
  if (session.QCircle == 0) session.QCircle = 2;
  if (session.QCircle < kMinQCircle) session.QCircle = kMinQCircle;
}

std::vector<Gamma> QArcPoints(double q, double sign) {
  const double k = std::sqrt(1 / (q * q) + 1);
  std::vector<Gamma> points;
  points.reserve(1801);
  for (double a = 0; a <= 180; a += 0.1) {
    points.push_back({k * std::cos(a * kDegree), sign * (k * std::sin(a * kDegree) - 1 / q)});
  }
  return points;
}

double DrawnVSWR(float vswrCircle) {
  return std::clamp(vswrCircle, kMinVSWRCircle, kMaxVSWRCircle);
}

std::vector<Gamma> VSWRCirclePoints(double vswr) {
  const double rho = (vswr - 1) / (vswr + 1);
  std::vector<Gamma> points;
  for (int degrees = 0; degrees <= 360; degrees += 5) {
    points.push_back({rho * std::cos(degrees * kDegree), rho * std::sin(degrees * kDegree)});
  }
  return points;
}

void DrawQArcs(Session& session, Canvas& canvas) {
  if (session.QArcsOn == 0) return;
  ClampQCircle(session);
  const ChartView view = ChartView::Of(session);
  const double halfWidth = view.aspect * view.radius;
  for (const double sign : {+1.0, -1.0}) {
    const std::vector<Gamma> arc = QArcPoints(session.QCircle, sign);
    canvas.MoveTo(view.GammaToPage(arc.front()));
    for (std::size_t k = 1; k < arc.size(); ++k) {
      const Point p = view.GammaToPage(arc[k]);
      const bool beyond = p.x >= view.centreX + halfWidth || p.x <= view.centreX - halfWidth;
      session.QArcColour = beyond ? kWhite : kQArcTeal;
      canvas.LineTo(p, session.QArcColour);
    }
  }
  canvas.Text({5300, 8340}, "Q=" + PlainNumberText(session.QCircle, kSingleDigits));
}

void DrawVSWRCircle(const Session& session, Canvas& canvas) {
  if (session.VSWRCircleOn == 0) return;
  const double vswr = DrawnVSWR(session.VSWRCircle);
  const ChartView view = ChartView::Of(session);
  const std::vector<Gamma> circle = VSWRCirclePoints(vswr);
  canvas.MoveTo(view.GammaToPage(circle.front()));
  for (std::size_t k = 1; k < circle.size(); ++k) {
    canvas.LineTo(view.GammaToPage(circle[k]), kVSWRRed);
  }
  canvas.Text({5300, 8140}, "VSWR=" + PlainNumberText(static_cast<float>(vswr), kSingleDigits));
}

}  // namespace kalvex
