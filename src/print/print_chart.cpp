#include "print/print_chart.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "analysis/sweep.h"
#include "chart/grids.h"
#include "chart/network_path.h"
#include "chart/overlays.h"
#include "model/calculate.h"
#include "platform/drawing_extent.h"
#include "model/format.h"
#include "model/number_text.h"
#include "model/trim.h"
#include "print/paper.h"
#include "print/paper_grids.h"
#include "print/print_schematic.h"

namespace kalvex {
namespace {

constexpr double kDegree = std::numbers::pi / 180;

enum class PaperGrid { Impedance, Admittance };
struct PaperGridStep {
  PaperGrid grid;
  Colour colour;
  double width;
};
struct PaperGridType {
  std::vector<PaperGridStep> steps;
  Colour admittance;  // 0: left as it was
  Colour impedance;
  Colour axis;
};

PaperGridType PaperGridOf(int16_t gridType) {
  switch (gridType) {
    case 2:
      return {{{PaperGrid::Admittance, RGB(153, 255, 153), 1}, {PaperGrid::Impedance, kStrongRed, 3}},
              RGB(153, 255, 153), kStrongRed, 0};
    case 3:
      return {{{PaperGrid::Admittance, kStrongGreen, 3}, {PaperGrid::Impedance, kStrongRed, 3}},
              kStrongGreen, kStrongRed, 0};
    case 4:
      return {{{PaperGrid::Impedance, RGB(255, 204, 204), 1}, {PaperGrid::Admittance, kStrongGreen, 3}},
              kStrongGreen, RGB(255, 204, 204), 0};
    case 5: return {{{PaperGrid::Admittance, kStrongGreen, 3}}, kStrongGreen, 0, kStrongGreen};
    case 6: return {{}, kStrongRed, 0, kStrongRed};
    default: return {{{PaperGrid::Impedance, kStrongRed, 3}}, 0, kStrongRed, kStrongRed};
  }
}

void PrintGrids(Session& session, Canvas& canvas, const ChartView& paper, const PaperGridType& type) {
  if (type.admittance != 0) session.AdmittanceGridColour = type.admittance;
  if (type.impedance != 0) session.ImpedanceGridColour = type.impedance;
  for (const PaperGridStep& step : type.steps) {
    canvas.SetLineWidth(step.width);
    if (step.grid == PaperGrid::Impedance) {
      PrintImpedanceGrid(canvas, paper, step.colour);
    } else {
      PrintAdmittanceGrid(canvas, paper, step.colour);
    }
  }
}

void PrintAxisAndRim(Canvas& canvas, const ChartView& paper, Colour colour) {
  const double xc = paper.centreX, yc = paper.centreY, r = paper.radius;
  canvas.SetLineWidth(6);
  canvas.Line({xc - r, yc}, {xc + r, yc}, colour);
  canvas.SetLineWidth(8);
  canvas.MoveTo({xc + r, yc});
  for (int degrees = 3; degrees <= 360; degrees += 3) {
    canvas.LineTo({xc + r * std::cos(degrees * kDegree), yc + r * std::sin(degrees * kDegree)},
                  colour);
  }
}

// The paper mark of a calculated point: circles of radius 12 and 24, width 12.
Point PrintPointAt(Canvas& canvas, const ChartView& paper, Gamma gamma, Colour colour) {
  const Point at = paper.GammaToPage(gamma);
  if (!std::isfinite(at.x) || !std::isfinite(at.y)) return at;
  canvas.SetLineWidth(12);
  canvas.Circle(at, 12, colour);
  canvas.Circle(at, 24, colour);
  canvas.SetLineWidth(1);
  return at;
}

// PrintPoint: the network calculated at `index` and its mark.
void PrintPoint(Session& session, Canvas& canvas, const ChartView& paper, int16_t index) {
  session.DataIndex = session.LoadSource == 2 ? session.SweepPoints / 2 + 1 : 1;
  CalculateNetwork(session, index);
  const PlottedPoint point = PlotImpedance(session.InputR, session.InputX, session.SystemZ);
  session.Rho = point.rho;
  PrintPointAt(canvas, paper, point.gamma, 0);
}

void PrintNetworkArcs(Session& session, Canvas& canvas, const ChartView& paper) {
  const std::vector<PathPoint> path = TraceNetworkPath(session);
  if (path.empty()) return;
  canvas.SetLineWidth(8);
  const Point first = paper.GammaToPage(path.front().gamma);
  for (const double radius : {15, 30, 45}) {
    canvas.Circle(first, radius, PaperStageColour(path.front().stage));
  }
  canvas.MoveTo(first);
  for (std::size_t k = 1; k < path.size(); ++k) {
    canvas.LineTo(paper.GammaToPage(path[k].gamma), PaperStageColour(path[k].stage));
  }
  canvas.SetLineWidth(1);
}

void PrintQArcs(Session& session, Canvas& canvas, const ChartView& paper) {
  ClampQCircle(session);
  canvas.SetLineWidth(6);
  for (const double sign : {+1.0, -1.0}) {
    const std::vector<Gamma> arc = QArcPoints(session.QCircle, sign);
    canvas.MoveTo(paper.GammaToPage(arc.front()));
    for (std::size_t k = 1; k < arc.size(); ++k) {
      const Point p = paper.GammaToPage(arc[k]);
      const bool beyond = p.x >= paper.centreX + paper.radius || p.x <= paper.centreX - paper.radius;
      canvas.LineTo(p, beyond ? kWhite : kQArcTeal);
    }
  }
  canvas.SetLineWidth(1);
  canvas.FillRect({1500, 10400}, {3000, 10600}, kWhite);
  canvas.Text({1500, 10400}, "Q=" + PlainNumberText(session.QCircle, kSingleDigits));
}

void PrintVSWRCircle(const Session& session, Canvas& canvas, const ChartView& paper) {
  const double vswr = DrawnVSWR(session.VSWRCircle);
  const std::vector<Gamma> circle = VSWRCirclePoints(vswr);
  canvas.SetLineWidth(6);
  canvas.MoveTo(paper.GammaToPage(circle.front()));
  for (std::size_t k = 1; k < circle.size(); ++k) {
    canvas.LineTo(paper.GammaToPage(circle[k]), kVSWRRed);
  }
  canvas.SetLineWidth(1);
  canvas.FillRect({1500, 10600}, {3000, 10800}, kWhite);
  canvas.Text({1500, 10600}, "VSWR=" + PlainNumberText(static_cast<float>(vswr), kSingleDigits));
}

void PrintSweepMarker(Canvas& canvas, Point at, const std::string& letter) {
  if (!std::isfinite(at.x) || !std::isfinite(at.y)) return;
  canvas.FillEllipse(at, 90, 90, kWhite);
  canvas.Circle(at, 90, 0);
  canvas.Text({at.x - 45, at.y - 90}, letter);
}

// PrintSweep: the sweep's routine, each point with the paper mark.
void PrintSweep(Session& session, Canvas& canvas, const ChartView& paper) {
  const SweepIndexes indexes = SweepIndexesOf(session);
  RunSweepPoints(session, SweepUse::Chart, [&](int index, const PlottedPoint& point) {
    const Point at = PrintPointAt(canvas, paper, point.gamma, 0);
    if (index == indexes.first) {
      PrintSweepMarker(canvas, at, "S");
      canvas.Text({1500, 10000}, "'S'=" + FormatSI(session.Frequency) + "Hz");
    }
    if (index == indexes.last) {
      PrintSweepMarker(canvas, at, "F");
      canvas.Text({1500, 10200}, "'F'=" + FormatSI(session.Frequency) + "Hz");
    }
  });
}

}  // namespace

Colour PaperStageColour(int stage) {
  static constexpr Colour kColours[] = {0, RGB(17, 17, 255), RGB(221, 17, 17), RGB(17, 187, 187),
                                        RGB(238, 238, 17), RGB(17, 187, 17)};
  return kColours[stage];
}

void DrawChartPage(Session& session, Canvas& canvas, const std::string& dateTime) {
  const ChartView paper = PaperChartView(session.ChartRadius);
  canvas.SetTextColour(0);
  canvas.SetFont(10, false);
  canvas.SetLineWidth(1);
  PrintSchematic(session, canvas);
  const PaperGridType grid = PaperGridOf(session.GridType);
  PrintGrids(session, canvas, paper, grid);
  PrintAxisAndRim(canvas, paper, grid.axis);
  canvas.SetLineWidth(1);
  PrintPoint(session, canvas, paper, session.DataIndex);
  // The legends print in the colour the last grid's labels left.
  canvas.Text({1500, 10800},
              "Chart normalized to " + std::string(Trim(PrintNumberText(session.SystemZ, 15))) +
                  " ohms");
  if (session.ArcsMode == 2) PrintNetworkArcs(session, canvas, paper);
  if (session.QArcsOn != 0) PrintQArcs(session, canvas, paper);
  if (session.VSWRCircleOn != 0) PrintVSWRCircle(session, canvas, paper);
  if (session.SweepShown != 0) PrintSweep(session, canvas, paper);
  canvas.SetTextColour(0);
  canvas.SetFont(6, false);
  canvas.Text({1500, 11300}, dateTime);
  canvas.Text({1500, 11500}, "Kalvex " + session.Version + kMakerAddress);
}

PageSize ChartPaperFor(const DisplayList& page) {
  // A margin beyond the drawing, as the chart keeps from the page's edges.
  constexpr double kMargin = 150;
  const Box extent = DrawingExtent(page);
  return {std::max(kChartPaper.width, extent.right + kMargin), std::max(kChartPaper.height, extent.bottom + kMargin)};
}

void PrintChart(Session& session, Dialogs& dialogs) {
  const std::string dateTime = dialogs.LocalDateTime();
  // The page is measured on a copy, so that a cancelled dialog leaves the
  // session as it was.
  Session measured = session;
  DisplayList page;
  DrawChartPage(measured, page, dateTime);
  std::string error;
  const std::unique_ptr<PrintJob> job = dialogs.StartPrint(ChartPaperFor(page), error);
  if (!job) return;
  DrawChartPage(session, job->Page(), dateTime);
  job->Finish();
}

}  // namespace kalvex
