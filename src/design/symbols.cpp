#include "design/symbols.h"

#include <algorithm>
#include <array>
#include <numbers>

#include "model/format.h"
#include "model/session.h"

namespace kalvex {
namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kGroundRail = 1040;

// Leads before and after the body, and the body's width (unscaled).
struct Layout {
  int leadsBefore;
  int leadsAfter;
  double bodyWidth;
};

// Indexed by type 0..17.
constexpr int kSymbolTypes = TwoPort + 1;
constexpr std::array<Layout, kSymbolTypes> kDesignLayout = {{
    {6, 0, 0}, {2, 2, 360}, {3, 3, 0}, {1, 0, 900}, {3, 3, 0}, {1, 0, 960}, {0, 1, 640},
    {1, 1, 640}, {1, 1, 720}, {1, 1, 720}, {2, 2, 0}, {1, 1, 640}, {0, 0, 1040}, {0, 0, 0},
    {2, 2, 360}, {1, 1, 960}, {1, 1, 640}, {1, 1, 960}}};
constexpr std::array<Layout, kSymbolTypes> kStripLayout = {{
    {0, 0, 0}, {1, 1, 360}, {2, 2, 0}, {1, 1, 900}, {2, 2, 0}, {1, 1, 800}, {1, 1, 640},
    {1, 1, 640}, {1, 1, 720}, {1, 1, 720}, {2, 2, 0}, {1, 1, 640}, {1, 1, 880}, {0, 2, 0},
    {2, 2, 360}, {1, 1, 960}, {1, 1, 640}, {1, 1, 960}}};

Layout LayoutOf(SymbolFamily family, int type) {
  if (family == SymbolFamily::Strip || family == SymbolFamily::Paper) return kStripLayout[type];
  Layout layout = kDesignLayout[type];
  if (family == SymbolFamily::Gallery) {
    if (type == SeriesResistor) layout.bodyWidth = 880;  // the strip's shorter zigzag
    if (type == ShuntResistor) layout = {2, 2, 0};
  }
  return layout;
}

// The pale-green backdrop of a highlighted Design-page symbol, from the
// symbol's start; none for the plain wire.
struct Backdrop {
  double from;
  double to;
};
constexpr std::array<Backdrop, kSymbolTypes> kBackdrops = {{
    {0, 0}, {-200, 1200}, {-200, 1200}, {-100, 1200}, {-200, 1200}, {-100, 1200},
    {-200, 1000}, {-200, 1100}, {-200, 1200}, {-200, 1200}, {-200, 800}, {-200, 1200},
    {-100, 1100}, {-300, 300}, {-200, 1200}, {-200, 1200}, {-200, 900}, {-200, 1200}}};

// The most characters of a block's file name its box shows.
constexpr std::size_t kBlockNameShown = 12;

}  // namespace

float CoilArcRadiusFor(double pageWidth, double pageHeight) {
  return static_cast<float>(60 * pageWidth / pageHeight);
}

SymbolPen::SymbolPen(Canvas& canvas, SymbolFamily family, float coilArcRadius,
                     float listingScale)
    : canvas_(canvas),
      family_(family),
      scale_(StripLike() ? listingScale : 1),
      lead_(StripLike() ? 300.0 * listingScale : family == SymbolFamily::Gallery ? 100 : 160),
      lineWidth_(family == SymbolFamily::Gallery ? 2 : family == SymbolFamily::Paper ? 8 : 1),
      coilRadius_(family == SymbolFamily::Paper ? 80 : coilArcRadius) {}

void SymbolPen::LineAt(double a1, double b1, double a2, double b2) {
  canvas_.Line(At(a1, b1), At(a2, b2), HighlightFlag);
}

void SymbolPen::PathAt(std::initializer_list<Point> points) {
  canvas_.MoveTo(At(points.begin()->x, points.begin()->y));
  for (auto p = points.begin() + 1; p != points.end(); ++p) {
    canvas_.LineTo(At(p->x, p->y), HighlightFlag);
  }
}

void SymbolPen::ArcAt(double a, double b, double radius, double start, double end) {
  canvas_.Arc(At(a, b), radius * scale_, start, end, HighlightFlag);
}

// The end of a line tube: an ellipse 1.5 times as tall as wide.
void SymbolPen::TubeEnd(double a, double b, double radius, double start, double end) {
  canvas_.EllipticArc(At(a, b), radius * scale_, 1.5, start, end, HighlightFlag);
}

void SymbolPen::DrawLead() {
  LeadFrom(ListX);
  ListX += lead_;
}

// A lead segment on both rails from x, leaving the cursor alone.
void SymbolPen::LeadFrom(double x) {
  const double groundY = ListY + kGroundRail * scale_;
  canvas_.Line({x, ListY}, {x + lead_, ListY}, HighlightFlag);
  canvas_.Line({x, groundY}, {x + lead_, groundY}, HighlightFlag);
}

void SymbolPen::Leads(int count) {
  for (int i = 0; i < count; ++i) DrawLead();
}

void SymbolPen::Backdrop(int type) {
  const auto [from, to] = kBackdrops[type];
  if (family_ != SymbolFamily::Design || HighlightFlag == 0 || from == to) return;
  canvas_.FillRect({ListX + from, ListY - 200}, {ListX + to, ListY + 1200}, kBackdropGreen);
}

void SymbolPen::DrawElementSymbol(int type) {
  if (type < 0 || type >= kSymbolTypes) return;
  const Layout layout = LayoutOf(family_, type);
  Backdrop(type);
  Leads(layout.leadsBefore);
  bodyX_ = ListX;
  DrawBody(type);
  ListX = bodyX_ + layout.bodyWidth * scale_;
  Leads(layout.leadsAfter);
}

void SymbolPen::DrawBody(int type) {
  switch (type) {
    case SeriesCapacitor: SeriesCapacitorBody(); break;
    case ShuntCapacitor: ShuntCapacitorBody(); break;
    case SeriesInductor: SeriesInductorBody(); break;
    case ShuntInductor:
      LineAt(0, 0, 0, 280);
      VerticalCoil(0, 360);
      LineAt(0, 760, 0, 1040);
      LineAt(0, 1040, 0, 1040);
      break;
    case SeriesLine: SeriesLineBody(); break;
    case SeriesShortedStub: SeriesStubBody(false); break;
    case SeriesOpenStub: SeriesStubBody(true); break;
    case ShuntShortedStub: ShuntStubBody(false); break;
    case ShuntOpenStub: ShuntStubBody(true); break;
    case ShuntSeriesLC: ShuntSeriesLCBody(); break;
    case SeriesParallelLC: SeriesParallelLCBody(); break;
    case SeriesResistor: SeriesResistorBody(); break;
    case ShuntResistor: ShuntResistorBody(); break;
    case InsertPlaceholder: InsertBody(); break;
    case CoaxialCable: CableBody(); break;
    case Transformer: TransformerBody(); break;
    case TwoPort: TwoPortBody(); break;
    default: break;  // the plain wire is leads only
  }
}

void SymbolPen::SeriesCapacitorBody() {
  LineAt(0, 0, 160, 0);
  Plate(160, -120, 160, 120);
  Plate(224, -120, 224, 120);
  LineAt(224, 0, 360, 0);
  LineAt(0, kGroundRail, 360, kGroundRail);
}

void SymbolPen::ShuntCapacitorBody() {
  LineAt(0, 0, 0, 480);
  Plate(-120, 480, 120, 480);
  Plate(-120, 540, 120, 540);
  LineAt(0, 540, 0, kGroundRail);
}

void SymbolPen::SeriesInductorBody() {
  // The strip hangs its coil 30 units (unscaled) below the rail.
  const double drop = StripLike() ? 30 / scale_ : 0;
  LineAt(0, 0, 160, 0);
  for (const double centre : {240, 400, 560}) ArcAt(centre, drop, 80, 0, kPi);
  LineAt(640, 0, 900, 0);
  LineAt(0, kGroundRail, 900, kGroundRail);
}

// Three half-turns down a vertical lead, 160 apart, bulging to the right.
void SymbolPen::VerticalCoil(double a, double firstCentre) {
  for (int turn = 0; turn < 3; ++turn) {
    ArcAt(a, firstCentre + 160 * turn, coilRadius_, 3 * kPi / 2, kPi / 2);
  }
}

void SymbolPen::SeriesLineBody() {
  const bool strip = StripLike();
  const double tubeRadius = strip ? 80 : coilRadius_;
  LineAt(0, 0, 160, 0);
  TubeEnd(160, 0, tubeRadius, 0, Canvas::kFullTurn);
  TubeEnd(480, 0, tubeRadius, 4.71239, 0);
  TubeEnd(480, 0, tubeRadius, 0, 1.5708);
  LineAt(160, strip ? -95 : -80, 480, strip ? -95 : -80);
  LineAt(160, 80, 480, 80);
  LineAt(160, 80, 160, kGroundRail);
  LineAt(480, 80, 480, kGroundRail);
  if (strip) {
    LineAt(560, 0, 800, 0);
    LineAt(0, kGroundRail, 800, kGroundRail);
  } else {
    LeadFrom(bodyX_);
    LineAt(560, 0, 960, 0);
    LineAt(160, kGroundRail, 960, kGroundRail);
  }
}

// A stub hanging below a break in the rail; the open one ends in a lead, the
// shorted one returns to the rail's far side.
void SymbolPen::SeriesStubBody(bool open) {
  PathAt({{0, 0}, {320, 0}, {320, 160}});
  canvas_.EllipticArc(At(320, 160), 80 * scale_, 0.6, 0, Canvas::kFullTurn, HighlightFlag);
  canvas_.EllipticArc(At(320, 460), 80 * scale_, 0.6, 3.1, 6.28, HighlightFlag);
  LineAt(240, 160, 240, 460);
  LineAt(400, 160, 400, 460);
  if (open) {
    LineAt(320, 510, 320, 640);
  } else {
    PathAt({{320, 510}, {320, 600}, {480, 600}, {480, 480}, {400, 480}});
  }
  PathAt({{400, 160}, {480, 160}, {480, 0}, {640, 0}});
  LineAt(0, kGroundRail, 640, kGroundRail);
}

void SymbolPen::ShuntStubBody(bool open) {
  const bool strip = family_ == SymbolFamily::Strip;
  const double tubeRadius = StripLike() ? 80 : coilRadius_;
  LineAt(0, 0, 720, 0);
  PathAt({{80, 0}, {80, 380}, {200, 380}});
  PathAt({{200, 460}, {200, 580}, {80, 580}, {80, kGroundRail}});
  if (open) {
    LineAt(580, 380, 680, 380);
  } else {
    PathAt({{580, 380}, {640, 380}, {640, 580}, {520, 580}, {520, 460}});
  }
  TubeEnd(200, 380, tubeRadius, 0, Canvas::kFullTurn);
  TubeEnd(520, 380, tubeRadius, 4.7, 0);
  TubeEnd(520, 380, tubeRadius, 0, 1.5);
  LineAt(200, strip ? 290 : 300, 520, strip ? 290 : 300);
  LineAt(200, strip ? 470 : 460, 520, strip ? 470 : 460);
  LineAt(0, kGroundRail, 720, kGroundRail);
}

void SymbolPen::ShuntSeriesLCBody() {
  LineAt(0, 0, 0, 160);
  VerticalCoil(0, 240);
  LineAt(0, 640, 0, 800);
  Plate(-120, 800, 120, 800);
  Plate(-120, 864, 120, 864);
  LineAt(0, 864, 0, kGroundRail);
  LineAt(0, kGroundRail, 80, kGroundRail);
}

void SymbolPen::SeriesParallelLCBody() {
  const double drop = StripLike() ? 30 / scale_ : 0;
  PathAt({{80, 0}, {80, 240}, {304, 240}});
  Plate(304, 120, 304, 360);
  Plate(360, 120, 360, 360);
  PathAt({{360, 240}, {560, 240}, {560, 0}});
  LineAt(0, 0, 80, 0);
  for (const double centre : {160, 320, 480}) ArcAt(centre, drop, 80, 0, kPi);
  LineAt(560, 0, 640, 0);
  // The ground rail runs on through the trailing lead, 160 units at most, so
  // the gallery's short leads are not overshot.
  LineAt(0, kGroundRail, 640 + std::min(160.0, lead_ / scale_), kGroundRail);
}

void SymbolPen::SeriesResistorBody() {
  if (family_ == SymbolFamily::Design) {
    PathAt({{0, 0}, {345, 0}, {390, -60}, {450, 60}, {510, -60}, {570, 60}, {630, -60},
            {690, 60}, {720, 0}, {1040, 0}});
    LineAt(0, kGroundRail, 1040, kGroundRail);
    LeadFrom(bodyX_);
    LeadFrom(bodyX_ + lead_);
    return;
  }
  PathAt({{0, 0}, {260, 0}, {290, -60}, {350, 60}, {410, -60}, {470, 60}, {530, -60},
          {590, 60}, {620, 0}, {880, 0}});
  LineAt(0, kGroundRail, 880, kGroundRail);
}

void SymbolPen::ShuntResistorBody() {
  PathAt({{0, 0}, {0, 320}, {60, 350}, {-60, 410}, {60, 470}, {-60, 530}, {60, 590},
          {-60, 650}, {0, 680}, {0, kGroundRail}});
}

// A coax cylinder: the centre conductor runs through a long tube whose
// shield is tied to the ground rail at both ends.
void SymbolPen::CableBody() {
  const double tubeRadius = StripLike() ? 80 : coilRadius_;
  LineAt(0, 0, 960, 0);
  TubeEnd(160, 0, tubeRadius, 0, Canvas::kFullTurn);
  TubeEnd(800, 0, tubeRadius, 4.71239, 0);
  TubeEnd(800, 0, tubeRadius, 0, 1.5708);
  LineAt(160, -120, 800, -120);
  LineAt(160, 120, 800, 120);
  for (const double end : {240, 720}) LineAt(end, 120, end, kGroundRail);
  LineAt(0, kGroundRail, 960, kGroundRail);
}

// Two windings facing each other across a two-bar core; the ground rail runs
// under both.
void SymbolPen::TransformerBody() {
  PathAt({{0, 0}, {160, 0}, {160, 280}});
  for (int turn = 0; turn < 3; ++turn) ArcAt(160, 360 + 160 * turn, 80, 3 * kPi / 2, kPi / 2);
  PathAt({{160, 760}, {160, kGroundRail}});
  for (const double bar : {290, 350}) LineAt(bar, 200, bar, 840);
  PathAt({{480, 280}, {480, 0}, {640, 0}});
  for (int turn = 0; turn < 3; ++turn) ArcAt(480, 360 + 160 * turn, 80, kPi / 2, 3 * kPi / 2);
  PathAt({{480, 760}, {480, kGroundRail}});
  LineAt(0, kGroundRail, 640, kGroundRail);
}

// A box between the rails with the name of the block's file in it; its
// port 1 on the generator side (right), port 2 on the load side.
void SymbolPen::TwoPortBody() {
  LineAt(0, 0, 160, 0);
  LineAt(800, 0, 960, 0);
  canvas_.OutlineRect(At(160, -160), At(800, 760), HighlightFlag);
  LineAt(480, 760, 480, kGroundRail);
  LineAt(0, kGroundRail, 960, kGroundRail);
  const std::string shown = BlockName.size() > kBlockNameShown
                                ? BlockName.substr(0, kBlockNameShown - 2) + ".."
                                : BlockName;
  canvas_.Text(At(190, 240), shown);
}

void SymbolPen::InsertBody() {
  canvas_.SetLineWidth(3);
  for (const Point p : {Point{0, 0}, Point{360, 0}, Point{0, kGroundRail},
                        Point{360, kGroundRail}}) {
    canvas_.Circle(At(p.x, p.y), 16 * scale_, HighlightFlag);
  }
  canvas_.SetLineWidth(lineWidth_);
  canvas_.Text(At(-15, 400), "Insert");
  canvas_.Text(At(0, 580), "here");
}

void SymbolPen::DrawPaddedShuntResistor() {
  Leads(2);
  DrawElementSymbol(ShuntResistor);
  Leads(2);
}

void SymbolPen::DrawStageSeparator() {
  if (StripLike()) {
    canvas_.SetLineWidth(3);
    canvas_.Line({ListX, ListY - 400}, {ListX, ListY + 1440}, kSeparatorBlue);
    canvas_.SetLineWidth(lineWidth_);
    return;
  }
  DrawLead();
  canvas_.SetLineWidth(3);
  canvas_.Line({ListX, ListY - 400}, {ListX, ListY + 1440}, kSeparatorBlue);
  canvas_.SetLineWidth(lineWidth_);
  DrawLead();
}

void SymbolPen::DrawLibrarySeparator() {
  canvas_.SetLineWidth(3);
  canvas_.Line({ListX + 60, ListY - 300}, {ListX + 60, ListY + 1300}, kSeparatorBlue);
  canvas_.SetLineWidth(lineWidth_);
  ListX += 120;
}

void SymbolPen::DrawGenerator(double systemZ) {
  const bool strip = family_ == SymbolFamily::Strip;
  if (StripLike()) DrawLead();
  bodyX_ = ListX;
  PathAt({{0, 0}, {120, 0}, {150, -60}, {210, 60}, {270, -60}, {330, 60}, {390, -60},
          {450, 60}, {480, 0}, {680, 0}});
  LineAt(680, 0, 680, 280);
  ArcAt(680, 480, 190, 0, 6.2);
  LineAt(680, 685, 680, kGroundRail);
  ArcAt(620, 480, 60, 0, 3.2);
  ArcAt(740, 480, 60, 3.1, 6.2);
  LineAt(0, kGroundRail, 680, kGroundRail);
  // The strip and the paper place their texts at unscaled offsets.
  const double textY = strip ? 1000 : family_ == SymbolFamily::Paper ? 1400 : 1200 * scale_;
  const double textX = bodyX_ + 250 * (StripLike() ? 1 : scale_);
  canvas_.Text({textX, ListY + textY}, FormatSmallSI(systemZ));
  canvas_.Text({textX, ListY + textY + 200}, "GEN");
}

void SymbolPen::DrawLoadSymbol(double loadReactance) {
  DrawElementSymbol(ShuntResistor);  // in the strip this brings its two leads
  if (loadReactance > 0) {
    DrawElementSymbol(SeriesInductor);
  } else if (loadReactance < 0) {
    DrawElementSymbol(SeriesCapacitor);
  } else if (!StripLike()) {
    Leads(3);
  }
}

}  // namespace kalvex
