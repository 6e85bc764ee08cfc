#include "print/print_schematic.h"

#include <array>
#include <cmath>

#include "design/schematic.h"
#include "design/symbols.h"
#include "model/format.h"
#include "print/paper.h"

namespace kalvex {
namespace {

constexpr double kPaperScale = 1.2;
constexpr double kSymbolWidth = 8;
constexpr Colour kPaperSeparator = RGB(170, 170, 255);

}  // namespace

void PrintSchematic(const Session& session, Canvas& canvas) {
  SymbolPen pen(canvas, SymbolFamily::Paper, session.CoilArcRadius,
                static_cast<float>(kPaperScale));
  pen.ListX = 1500;
  pen.ListY = 1000;
  canvas.SetLineWidth(kSymbolWidth);
  canvas.SetFont(8, false);

  const double r = session.Value[0][1];
  const double x = session.Value[0][2];
  pen.DrawLoadSymbol(x);
  canvas.Text({pen.ListX - (x == 0 ? 800 : 1600), pen.ListY + 1400}, LoadValueText(r, x));
  std::array<double, kLastStage + 1> rightEdge{};
  rightEdge[0] = pen.ListX;

  for (int s = 1; s <= kLastStage; ++s) {
    canvas.SetLineWidth(1);
    canvas.Line({pen.ListX, pen.ListY - 400}, {pen.ListX, pen.ListY + 1440}, kPaperSeparator);
    canvas.SetLineWidth(kSymbolWidth);
    const int16_t type = session.ElementType[s];
    if (IsPart(type)) {
      const std::vector<std::string> lines = PartValueLines(type, session.Value[s], session.Cables);
      for (std::size_t line = 0; line < lines.size(); ++line) {
        canvas.Text({pen.ListX + 100, pen.ListY + 1400 + 200.0 * line}, lines[line]);
      }
      if (type == ShuntResistor) {
        pen.DrawLead();
        pen.DrawLead();
      }
      pen.BlockName = BlockNameOf(session, s);
      pen.DrawElementSymbol(type);
    }
    rightEdge[s] = pen.ListX;
  }
  pen.DrawGenerator(session.SystemZ);

  if (session.ArcsMode == 2) {
    for (int s = 1; s <= kLastStage; ++s) {
      if (session.ElementType[s] <= 0) continue;
      canvas.FillRect({rightEdge[s - 1], 750}, {rightEdge[s], 780}, PaperStageColour(s));
    }
  }
  canvas.SetLineWidth(1);
  canvas.SetFont(10, false);
  canvas.Text({1500, 3000}, "Frequency: " + FormatSI(session.Frequency));
}

}  // namespace kalvex
