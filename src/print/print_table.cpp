#include "print/print_table.h"

#include <array>
#include <cmath>

#include "model/format.h"
#include "model/reflection.h"
#include "model/sweep_indexes.h"
#include "print/paper.h"

namespace kalvex {
namespace {

// Every position is 0.7 inch in from the printable area's corner.
constexpr double kOrigin = 1008;
constexpr std::array<double, 7> kHeadingX = {1000, 2200, 3200, 4000, 5000, 6000, 7000};
constexpr std::array<const char*, 7> kHeadings = {"Freq:", "R:",      "jX:", "Rho:",
                                                  "Angle:", "Return:", "VSWR:"};
constexpr std::array<double, 7> kColumnX = {1000, 2100, 3000, 4000, 5000, 6000, 7000};
constexpr int kLinesPerPage = 43;  // the counter's limit; the title takes 3 on page 1

// A printed line's height in twips: the font's size and its leading.
double LineHeight(double points) { return points * 20 * 1.15; }

// Prints on one line at a time, as a printer's text cursor moves down.
class TableCursor {
 public:
  explicit TableCursor(Canvas& canvas) : canvas_(canvas) {}
  void Font(double points, bool bold = false) {
    points_ = points;
    canvas_.SetFont(points, bold);
  }
  void MoveTo(double y) { y_ = y; }
  void At(double x, const std::string& text) { canvas_.Text({kOrigin + x, kOrigin + y_}, text); }
  void EndLine() { y_ += LineHeight(points_); }

  void HeadingBlock() {
    Font(12);
    for (std::size_t c = 0; c < kHeadings.size(); ++c) At(kHeadingX[c], kHeadings[c]);
    EndLine();
    EndLine();
    Font(10);
  }

 private:
  Canvas& canvas_;
  double points_ = 10;
  double y_ = 0;
};

}  // namespace

std::string TableCautionText(int points) {
  if (points <= 40) return "";
  return "We have " + std::to_string(points) + " lines of data and so will use over " +
         std::to_string(points / 40) + " sheets of paper. \r\n" +
         "Are you sure you want to continue and print out the data?";
}

void DrawTablePages(const Session& session, Canvas& canvas, const std::string& dateTime) {
  canvas.SetTextColour(0);
  TableCursor cursor(canvas);
  cursor.MoveTo(300);
  cursor.Font(16, true);
  cursor.At(1000, "Tabulated Data");
  cursor.EndLine();
  cursor.EndLine();
  cursor.Font(10);
  cursor.MoveTo(900);
  int lines = 3;
  cursor.HeadingBlock();

  const SweepIndexes indexes = SweepIndexesOf(session);
  for (int k = indexes.first; k <= indexes.last; ++k) {
    if (!IsFiniteSweepPoint(session, k)) continue;  // as the table and the files leave it out
    const std::array<std::string, 7> row = {
        FormatSI(session.SweepFreq[k]),
        FormatGeneral(session.SweepR[k]),
        Signed(FormatGeneral(session.SweepX[k])),
        FormatGeneral(session.SweepRho[k]),
        Signed(FormatGeneral(session.SweepAngle[k])),
        FormatGeneral(ReturnLossDb(session.SweepRho[k])),
        FormatGeneral(session.SweepVSWR[k])};
    for (std::size_t c = 0; c < row.size(); ++c) cursor.At(kColumnX[c], row[c]);
    cursor.EndLine();
    if (++lines > kLinesPerPage) {
      canvas.NewPage();
      lines = 0;
      cursor.MoveTo(500);
      cursor.HeadingBlock();
    }
  }
  cursor.EndLine();
  cursor.EndLine();
  cursor.Font(8);
  cursor.At(1000, dateTime);
  cursor.EndLine();
  cursor.At(1000, "Kalvex " + session.Version + kMakerAddress);
}

void PrintTable(const Session& session, Dialogs& dialogs) {
  std::string error;
  const std::unique_ptr<PrintJob> job = dialogs.StartPrint(kTablePaper, error);
  if (!job) {
    dialogs.Message(error, "Printer Error");
    return;
  }
  const std::string caution = TableCautionText(session.SweepPoints);
  if (!caution.empty() &&
      dialogs.Message(caution, "Caution", MessageButtons::YesNo, MessageIcon::Question) !=
          MessageAnswer::Yes) {
    return;
  }
  DrawTablePages(session, job->Page(), dialogs.LocalDateTime());
  error = job->Finish();
  if (!error.empty()) dialogs.Message(error, "Printer Error");
}

}  // namespace kalvex
