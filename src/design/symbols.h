#pragma once

#include <string>

#include "platform/canvas.h"

namespace kalvex {

// The members of the symbol family: the Design page's schematic and library
// at full scale, the Analysis page's strip at ListingScale with longer leads,
// the welcome page's gallery with short leads and thick lines, and the printed
// schematic: the strip's symbols at its own scale, with coils of radius 80,
// shunt stub walls where the Design page has them and the generator's texts
// lower.
enum class SymbolFamily { Design, Strip, Gallery, Paper };

// Draws the schematic symbols at a cursor on the signal rail (ListX, ListY);
// the ground rail runs 1040 units (× scale) below it. Every routine draws in the
// colour HighlightFlag and moves ListX right by the symbol's width.
class SymbolPen {
 public:
  SymbolPen(Canvas& canvas, SymbolFamily family, float coilArcRadius, float listingScale = 1);

  double ListX = 0;
  double ListY = 0;
  // The colour of the symbol lines; 0 is black. On the Design page any other
  // value also gives the symbol its pale-green backdrop.
  Colour HighlightFlag = 0;
  // The file name a two-port block's box shows (long ones cut short).
  std::string BlockName;

  // Element types 0..17: the plain wire, the thirteen parts, the insert mark,
  // the cable, the transformer and the two-port block.
  void DrawElementSymbol(int type);
  void DrawLead();
  void DrawStageSeparator();
  void DrawLibrarySeparator();
  void DrawGenerator(double systemZ);
  // The load's shunt resistor, then a wire, a series inductor (X > 0) or a
  // series capacitor (X < 0).
  void DrawLoadSymbol(double loadReactance);
  // Lead, lead, the shunt-resistor body, lead, lead: how the schematic and the
  // library draw a type 13 stage.
  void DrawPaddedShuntResistor();

 private:
  Point At(double a, double b) const { return {bodyX_ + a * scale_, ListY + b * scale_}; }
  void LineAt(double a1, double b1, double a2, double b2);
  void PathAt(std::initializer_list<Point> points);
  void ArcAt(double a, double b, double radius, double start, double end);
  void TubeEnd(double a, double b, double radius, double start, double end);
  void Plate(double a1, double b1, double a2, double b2) { LineAt(a1, b1, a2, b2); }
  void Leads(int count);
  void LeadFrom(double x);
  void Backdrop(int type);
  void DrawBody(int type);
  void SeriesCapacitorBody();
  void ShuntCapacitorBody();
  void SeriesInductorBody();
  void VerticalCoil(double a, double firstCentre);
  void SeriesLineBody();
  void SeriesStubBody(bool open);
  void ShuntStubBody(bool open);
  void ShuntSeriesLCBody();
  void SeriesParallelLCBody();
  void SeriesResistorBody();
  void ShuntResistorBody();
  void InsertBody();
  void CableBody();
  void TransformerBody();
  void TwoPortBody();

  // The strip and the paper share their layouts and most shapes.
  bool StripLike() const {
    return family_ == SymbolFamily::Strip || family_ == SymbolFamily::Paper;
  }

  Canvas& canvas_;
  SymbolFamily family_;
  double scale_;
  double lead_;
  double lineWidth_;
  double coilRadius_;  // CoilArcRadius, before scaling
  double bodyX_ = 0;
};

// The coil radius that the welcome page sets once: 60 × width ÷ height of the
// page, 80 for a 4 : 3 page.
float CoilArcRadiusFor(double pageWidth, double pageHeight);

inline constexpr Colour kSeparatorBlue = RGB(187, 204, 255);
inline constexpr Colour kBackdropGreen = RGB(238, 255, 238);

}  // namespace kalvex
