#include "chart/chart_view.h"

#include <cmath>

#include "files/field_reader.h"
#include "model/format.h"
#include "model/number_text.h"

namespace kalvex {
namespace {

constexpr double kRadiusAtZoomOne = 3000;
constexpr float kMinAspect = 0.5f;
constexpr float kMaxAspect = 1.5f;

ZoomButtons SetZoom(Session& session, float zoom) {
  session.ChartZoom = zoom;
  session.ChartRadius = static_cast<float>(session.ChartZoom * kRadiusAtZoomOne);
  return {session.ChartZoom != kMaxZoom, session.ChartZoom != 1};
}

// The aspect's text: its shortest decimal text, a blank before a positive
// number and no "0" before the point.
std::string AspectText(double value) { return PrintNumberText(value, 7); }

}  // namespace

Gamma ImpedanceToGamma(double r, double x, double systemZ) {
  return GammaOfNormalised(r / systemZ, x / systemZ);
}

ZoomButtons ZoomIn(Session& session) {
  float zoom = static_cast<float>(session.ChartZoom * std::sqrt(2.0));
  if (zoom > kMaxZoom) zoom = kMaxZoom;
  const ZoomButtons buttons = SetZoom(session, zoom);
  return {buttons.inEnabled, true};
}

ZoomButtons ZoomOut(Session& session) {
  float zoom = static_cast<float>(session.ChartZoom / std::sqrt(2.0));
  if (zoom < 1) zoom = 1;
  const ZoomButtons buttons = SetZoom(session, zoom);
  return {true, buttons.outEnabled};
}

ZoomButtons ResetView(Session& session) {
  SetZoom(session, 1);
  session.ChartCentreX = 8000;
  session.ChartCentreY = 5000;
  return {true, false};
}

bool ChartDrag::Move(Session& session, double x, double y) {
  if (!(y > 2000)) return false;
  session.ChartCentreX = static_cast<float>(x - anchor_.x + session.ChartCentreX);
  session.ChartCentreY = static_cast<float>(y - anchor_.y + session.ChartCentreY);
  anchor_ = {x, y};
  return true;
}

AspectTexts AspectFactorEntered(Session& session, const std::string& factorText) {
  session.ChartAspect = static_cast<float>(ParseValue(factorText));
  if (session.ChartAspect > kMaxAspect) {
    session.ChartAspect = kMaxAspect;
    return {"1.5", "150"};
  }
  if (session.ChartAspect < kMinAspect) {
    session.ChartAspect = kMinAspect;
    return {".5", "50"};
  }
  return {};
}

std::string AspectPercentStepped(Session& session, const std::string& percentText) {
  const NumericPrefix percent = FieldNumber(percentText);
  session.ChartAspect = static_cast<float>(percent.value * 0.01);
  if (session.ChartAspect > kMaxAspect) session.ChartAspect = kMaxAspect;
  if (session.ChartAspect < kMinAspect) session.ChartAspect = kMinAspect;
  return AspectText(session.ChartAspect);
}

AspectTexts AspectBoxTexts(float aspect) {
  return {AspectText(aspect), AspectText(aspect * 100.0)};
}

}  // namespace kalvex
