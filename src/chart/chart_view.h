#pragma once

#include "model/reflection.h"
#include "model/session.h"
#include "platform/canvas.h"

namespace kalvex {

// Where the chart stands on the page: the centre (reflection coefficient 0),
// the vertical radius of the unit circle and the horizontal aspect factor.
struct ChartView {
  double centreX = 8000;
  double centreY = 5000;
  double radius = 3000;
  double aspect = 0.75;

  static ChartView Of(const Session& session) {
    return {session.ChartCentreX, session.ChartCentreY, session.ChartRadius, session.ChartAspect};
  }

  Point GammaToPage(Gamma g) const {
    return {centreX + aspect * radius * g.u, centreY - radius * g.v};
  }
  Gamma PageToGamma(Point p) const {
    return {(p.x - centreX) / (aspect * radius), (centreY - p.y) / radius};
  }
};

// Γ of an impedance in ohms, normalised to the system impedance.
Gamma ImpedanceToGamma(double r, double x, double systemZ);

inline constexpr double kMaxZoom = 8;

// The view controls of the Analysis page. Each returns whether the zoom
// buttons may still be used, for the page to enable them.
struct ZoomButtons {
  bool inEnabled;
  bool outEnabled;
};
ZoomButtons ZoomIn(Session& session);
ZoomButtons ZoomOut(Session& session);
ZoomButtons ResetView(Session& session);

// The right-button drag: a press anchors it, and every move below y 2000
// moves the chart by the distance from the last anchor.
class ChartDrag {
 public:
  void Press(double x, double y) { anchor_ = {x, y}; }
  // Returns true when the chart moved.
  bool Move(Session& session, double x, double y);

 private:
  Point anchor_;  // DragStartX, DragStartY
};

// The aspect entry: the factor box (".75") and the percent box with its
// spinner (50..150). Both keep ChartAspect within 0.5..1.5.
struct AspectTexts {
  std::string factor;   // txtAspect, when it has to change
  std::string percent;  // txtAspectEntry, when it has to change
};
// txtAspect changed: the factor is parsed and clamped; the boxes are given new
// texts only where the value was clamped.
AspectTexts AspectFactorEntered(Session& session, const std::string& factorText);
// The spinner changed txtAspectEntry: the factor box's new text.
std::string AspectPercentStepped(Session& session, const std::string& percentText);
// The texts of both boxes for ChartAspect: " .75" and " 75".
AspectTexts AspectBoxTexts(float aspect);

}  // namespace kalvex
