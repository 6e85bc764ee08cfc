#include "chart/analysis_view.h"

namespace kalvex {

void LoadAnalysisView(Session& session) {
  if (session.ChartZoom == 0) session.ChartZoom = 1;
  session.ChartRadius = 3000 * session.ChartZoom;
  session.ChartCentreY = 5000;
  if (session.QCircle == 0) session.QCircle = 2;
  if (session.VSWRCircle == 0) session.VSWRCircle = 2;
  if (session.ArcsMode == 0) session.ArcsMode = 2;
}

std::string AnalysisCaption(const Session& session) {
  return "Kalvex " + session.Version + " - Analysis  " + session.FileName;
}

}  // namespace kalvex
