#include "design/welcome_pictures.h"

#include <cmath>
#include <numbers>
#include <string>

#include "design/schematic.h"
#include "design/symbols.h"

namespace kalvex {
namespace {

constexpr Colour kBoxBlue = RGB(17, 17, 204);
constexpr Colour kSketchRed = RGB(170, 17, 17);

void DrawBoxChain(Canvas& canvas) {
  canvas.SetLineWidth(2);
  constexpr double y = 3000;
  for (int box = 0; box < 7; ++box) {
    const double x = 1600 + 800.0 * box;
    canvas.FillRect({x, y}, {x + 500, y + 500}, kWhite);
    canvas.OutlineRect({x, y}, {x + 500, y + 500}, kBoxBlue);
    const bool labelled = box > 0 && box < 6;
    canvas.Text({x + 125, y + 120}, labelled ? "Z" + std::to_string(box) : "");
    if (box == 6) break;
    canvas.Line({x + 500, y + 250}, {x + 800, y + 250}, kBoxBlue);
    canvas.Line({x + 650, y + 200}, {x + 800, y + 250}, kBoxBlue);
    canvas.Line({x + 650, y + 300}, {x + 800, y + 250}, kBoxBlue);
  }
  canvas.SetLineWidth(1);
}

// The Smith chart sketch: circles and arcs drawn as polylines through points
// `stepDegrees` apart, every horizontal offset stretched by the aspect.
class ChartSketch {
 public:
  ChartSketch(Canvas& canvas, float aspect) : canvas_(canvas), aspect_(aspect) {}

  // The curve of centre (cx, cy) and radius r (offsets from the chart
  // centre), from `from` to `to` degrees; `mirror` flips it about the axis.
  void Curve(double cx, double cy, double r, double from, double to, double stepDegrees,
             bool mirror = false) {
    const double flip = mirror ? -1 : 1;
    for (int i = 0; from + i * stepDegrees <= to + 1e-9; ++i) {
      const double a = (from + i * stepDegrees) * std::numbers::pi / 180;
      const Point p{kCentre.x + aspect_ * (cx + r * std::cos(a)),
                    kCentre.y + flip * (cy + r * std::sin(a))};
      if (i == 0) {
        canvas_.MoveTo(p);
      } else {
        canvas_.LineTo(p, kSketchRed);
      }
    }
  }

  void Draw() {
    Curve(0, 0, kRadius, 0, 360, 10);
    for (const double r : {0.2, 0.5, 1.0, 2.0, 5.0}) {
      Curve(r / (1 + r) * kRadius, 0, kRadius / (1 + r), 0, 360, 10);
    }
    struct ReactanceArc {
      double x, from, to, step;
    };
    for (const ReactanceArc arc : {ReactanceArc{2, 142, 232, 5}, ReactanceArc{1, 180, 251, 1},
                                   ReactanceArc{0.5, 217, 260.6, 0.2},
                                   ReactanceArc{0.2, 247.5, 266.2, 0.2}}) {
      for (const bool mirror : {false, true}) {
        Curve(kRadius, kRadius / arc.x, kRadius / arc.x, arc.from, arc.to, arc.step, mirror);
      }
    }
    canvas_.Line({kCentre.x - aspect_ * kRadius, kCentre.y},
                 {kCentre.x + aspect_ * kRadius, kCentre.y}, kSketchRed);
    canvas_.SetLineWidth(8);
    canvas_.Line({9305, 4520}, {9305, 4520}, RGB(0, 0, 255));
    canvas_.SetLineWidth(6);
    canvas_.Line(kCentre, kCentre, RGB(255, 0, 0));
    canvas_.SetLineWidth(1);
  }

 private:
  static constexpr Point kCentre{9500, 4000};
  static constexpr double kRadius = 1300;
  Canvas& canvas_;
  double aspect_;
};

void DrawGallery(Canvas& canvas, float coilArcRadius) {
  canvas.SetLineWidth(2);
  SymbolPen pen(canvas, SymbolFamily::Gallery, coilArcRadius);
  auto row = [&pen](double y, int firstType, int lastType) {
    pen.ListX = 1600;
    pen.ListY = y;
    for (int type = firstType; type <= lastType; ++type) {
      pen.DrawElementSymbol(type);
      pen.ListX += 200;
    }
  };
  row(3900, SeriesCapacitor, SeriesShortedStub);
  row(5200, SeriesOpenStub, ShuntResistor);
  canvas.SetLineWidth(1);
}

}  // namespace

void DrawWelcomePictures(Canvas& canvas, float chartAspect, float coilArcRadius) {
  DrawBoxChain(canvas);
  ChartSketch(canvas, chartAspect).Draw();
  DrawGallery(canvas, coilArcRadius);
}

void DrawWelcomePage(Canvas& canvas, float chartAspect, float coilArcRadius) {
  canvas.Clear(kPageBackground);
  DrawWelcomePictures(canvas, chartAspect, coilArcRadius);
}

}  // namespace kalvex
