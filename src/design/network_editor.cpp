#include "design/network_editor.h"

#include <cmath>
#include <span>
#include <utility>

#include "design/feed_part_limits.h"
#include "design/symbols.h"
#include "model/format.h"

namespace kalvex {
namespace {

constexpr Colour kFrameGreen = RGB(0, 255, 0);
constexpr Colour kPreviewGreen = RGB(17, 136, 17);

const char* const kCapacitorCaptions[] = {"Capacitance (F): ", "Capacitor Q: "};
const char* const kInductorCaptions[] = {"Inductance (H): ", "Inductor Q: "};
const char* const kLineCaptions[] = {"Length (deg): ", "Frequency (Hz): ", "Impedance (ohms): "};
const char* const kLCCaptions[] = {"Inductance (H): ", "Inductor Q: ", "Capacitance (F): ",
                                   "Capacitor Q: "};
const char* const kResistorCaptions[] = {"Resistance (ohms): "};

std::span<const char* const> CaptionsOf(int16_t type) {
  switch (type) {
    case SeriesCapacitor: case ShuntCapacitor: return kCapacitorCaptions;
    case SeriesInductor: case ShuntInductor: return kInductorCaptions;
    case SeriesLine: case SeriesShortedStub: case SeriesOpenStub: case ShuntShortedStub:
    case ShuntOpenStub: return kLineCaptions;
    case ShuntSeriesLC: case SeriesParallelLC: return kLCCaptions;
    case SeriesResistor: case ShuntResistor: return kResistorCaptions;
    default: return {};
  }
}

// A Q entry: its magnitude, the default when it is 0, and never below 2.
double QOf(double parsed, float defaultQ) {
  double q = std::fabs(parsed);
  if (q == 0) q = defaultQ;
  return q < 2 ? 2 : q;
}

// The shunt inductor takes the default before the magnitude.
double ShuntInductorQOf(double parsed, float defaultQ) {
  const double q = std::fabs(parsed == 0 ? defaultQ : parsed);
  return q < 2 ? 2 : q;
}

double AtLeast(double value, double minimum) { return value < minimum ? minimum : value; }

// A line's reference frequency: its magnitude within 10 kHz..10 GHz.
double ReferenceFrequencyOf(double parsed) {
  const double f = std::fabs(parsed);
  return f < 10'000 ? 10'000 : f > 1e10 ? 1e10 : f;
}

}  // namespace

StageValues AcceptedValues(const Session& session, int16_t type, const StageValues& parsed) {
  const float capacitorQ = session.DefaultCapacitorQ;
  const float inductorQ = session.DefaultInductorQ;
  StageValues v{};
  switch (type) {
    case SeriesCapacitor: case ShuntCapacitor:
      v[1] = AtLeast(std::fabs(parsed[1]), 1e-12);
      v[2] = QOf(parsed[2], capacitorQ);
      break;
    case SeriesInductor: case ShuntInductor:
      // An inductance is kept as entered, even negative.
      v[1] = parsed[1];
      v[2] = type == ShuntInductor ? ShuntInductorQOf(parsed[2], inductorQ) : QOf(parsed[2], inductorQ);
      break;
    case SeriesLine:
      v[1] = std::fabs(parsed[1]);
      v[2] = ReferenceFrequencyOf(parsed[2]);
      if (v[1] <= 0) v[1] = 1;
      v[3] = std::fabs(parsed[3]);
      if (v[3] <= 0) v[3] = 1;
      break;
    case SeriesShortedStub: case SeriesOpenStub: case ShuntShortedStub: case ShuntOpenStub:
      v[1] = std::fabs(parsed[1]);
      v[2] = ReferenceFrequencyOf(parsed[2]);
      v[3] = AtLeast(std::fabs(parsed[3]), 1);
      break;
    case ShuntSeriesLC: case SeriesParallelLC:
      v[1] = AtLeast(std::fabs(parsed[1]), 1e-9);
      v[2] = QOf(parsed[2], inductorQ);
      // The series-parallel pair keeps the sign of its capacitance entry.
      v[3] = AtLeast(type == SeriesParallelLC ? parsed[3] : std::fabs(parsed[3]), 1e-12);
      v[4] = QOf(parsed[4], capacitorQ);
      break;
    case SeriesResistor: case ShuntResistor:
      v[1] = AtLeast(std::fabs(parsed[1]), 1);
      break;
    case CoaxialCable: case Transformer: {
      std::vector<std::string> unshown;
      v = FeedPartValues(type, parsed, unshown);
      break;
    }
    default: break;
  }
  return v;
}


int LibraryPartAt(double x, double y) {
  if (!(x > 2500)) return -1;
  if (y > 5400 && y < 6900) {
    constexpr double kRow1[] = {9200, 8000, 7000, 5800, 4700, 3500, 2500};
    for (int i = 0; i < 7; ++i) {
      if (x > kRow1[i]) return 6 - i;
    }
  }
  if (y > 7000 && y < 8200) {
    constexpr double kRow2[] = {10000, 9000, 8000, 6900, 5800, 4700, 3500, 2500};
    for (int i = 0; i < 8; ++i) {
      if (x > kRow2[i]) return 14 - i;
    }
  }
  return -1;
}

NetworkEditor::NetworkEditor(Session& session, float coilArcRadius)
    : session_(session), coilArcRadius_(coilArcRadius) {}

void NetworkEditor::Open() {
  LibraryArmed = 0;
  EditStage = kNothing;
  controls = EditorControls{};
  library_.Reset();
  DrawLibrary(library_, coilArcRadius_);
  preview_.Reset();
  Redraw();
}

void NetworkEditor::Compose(Canvas& canvas) const {
  canvas.Clear(kPageBackground);
  library_.Replay(canvas);
  network_.Replay(canvas);
  preview_.Replay(canvas);
}

// DrawNetwork: the schematic afresh (it also clears the preview area).
void NetworkEditor::Redraw() {
  network_.Reset();
  preview_.Reset();
  StageX = DrawNetwork(session_, network_, coilArcRadius_);
}

void NetworkEditor::Frame(double left, double right) {
  network_.SetLineWidth(3);
  network_.OutlineRect({left, 500}, {right, 1800}, kFrameGreen);
  network_.SetLineWidth(1);
}

bool NetworkEditor::MouseDown(double x, double y) {
  for (ValueBox& box : controls.value) box.shown = false;
  controls.acceptShown = false;
  controls.dontAcceptShown = false;
  preview_.Reset();
  bool stageSelected = false;
  if (y > 400 && y < 1900) {
    if (x > StageX[1] - 1200 && x < StageX[1]) {
      LibraryArmed = 0;
      SelectLoad();
    } else if (x > StageX[1] && x < StageX[5] + 1200) {
      LibraryArmed = 1;
      SelectStage(x);
      stageSelected = true;
    }
  }
  if (x > 2500 && x < 11300 && y > 5400 && y < 8200 && LibraryArmed == 1) PickLibraryPart(x, y);
  return stageSelected;
}

void NetworkEditor::SelectLoad() {
  Redraw();
  Frame(StageX[1] - 1400, StageX[1] - 15);
  if (session_.Value[0][1] > 0) controls.value[0].text = FormatGeneral(session_.Value[0][1]);
  if (session_.Value[0][2] != 0) controls.value[1].text = FormatGeneral(session_.Value[0][2]);
  controls.value[0].caption = "R (ohms): ";
  controls.value[1].caption = "X (ohms): ";
  controls.value[0].shown = controls.value[1].shown = true;
  controls.acceptShown = true;
  EditStage = 0;
}

void NetworkEditor::SelectStage(double x) {
  int stage = 1;
  for (int n = kLastStage; n >= 1; --n) {
    if (x > StageX[n]) {
      stage = n;
      break;
    }
  }
  LibraryArmed = 1;
  EditStage = static_cast<int16_t>(stage);
  Redraw();
  Frame(StageX[stage] + 30, StageX[stage + 1] - 15);
  controls.libraryHintShown = true;
  controls.selectHintShown = false;
}

void NetworkEditor::PickLibraryPart(double x, double y) {
  const int picked = LibraryPartAt(x, y);
  const int s = EditStage;
  if (LibraryArmed == 0 || picked < 0 || s < 1 || s > kLastStage) return;
  const auto type = static_cast<int16_t>(picked);

  SavedType = session_.ElementType[s];
  const bool exact = SavedType == CoaxialCable || SavedType == Transformer;
  for (int k = 1; k <= kValueSlots; ++k) {
    const double value = session_.Value[s][k];
    SavedValue[k] = exact ? value : static_cast<float>(value);
  }
  session_.ElementType[s] = type;
  if (type == InsertPlaceholder) {
    if (session_.ElementType[kLastStage] != Empty) controls.removeShown = true;
    controls.dontAcceptShown = true;
  }
  LibraryArmed = 0;
  if (SavedType != type) {
    for (int k = 1; k <= kValueSlots; ++k) session_.Value[s][k] = 0;
  }
  controls.analyzeEnabled = false;
  controls.selectHintShown = false;

  SymbolPen pen(preview_, SymbolFamily::Design, coilArcRadius_);
  pen.ListX = 9500;
  pen.ListY = 3100;
  pen.HighlightFlag = kPreviewGreen;
  pen.DrawElementSymbol(type);

  Prefill(type);
  if (type == Empty) {
    for (int k = 1; k <= kValueSlots; ++k) session_.Value[s][k] = 0;
    for (ValueBox& box : controls.value) box.text.clear();
    controls.acceptShown = false;
    Redraw();
    controls.analyzeEnabled = true;
    controls.libraryHintShown = false;
    controls.selectHintShown = true;
    return;
  }
  ShowValueBoxes(type);
}

// Fills the boxes from the stage's values; a value whose text would read as
// nothing ("0 ", "0.0 ") leaves its box as it was.
void NetworkEditor::Prefill(int16_t type) {
  const auto& v = session_.Value[EditStage];
  auto fill = [this](int box, const std::string& text, const char* unlessText) {
    if (unlessText == nullptr || text != unlessText) controls.value[box].text = text;
  };
  switch (type) {
    case SeriesCapacitor: case ShuntCapacitor:
      fill(0, FormatCapacitance(v[1]), nullptr);
      fill(1, FormatGeneral(v[2]), "0 ");
      break;
    case SeriesInductor: case ShuntInductor:
      fill(0, FormatInductance(v[1]), nullptr);
      fill(1, FormatGeneral(v[2]), "0 ");
      break;
    case SeriesLine: case SeriesShortedStub: case SeriesOpenStub: case ShuntShortedStub:
    case ShuntOpenStub:
      fill(0, FormatGeneral(v[1]), "0 ");
      fill(1, FormatSI(v[2]), "0.0 ");
      fill(2, FormatGeneral(v[3]), "0 ");
      break;
    case ShuntSeriesLC: case SeriesParallelLC:
      fill(0, FormatInductance(v[1]), nullptr);
      fill(1, FormatGeneral(v[2]), "0 ");
      fill(2, FormatCapacitance(v[3]), nullptr);
      fill(3, FormatGeneral(v[4]), "0 ");
      break;
    case SeriesResistor: case ShuntResistor:
      fill(0, FormatGeneral(v[1]), "0 ");
      break;
    default: break;
  }
}

void NetworkEditor::ShowValueBoxes(int16_t type) {
  const auto captions = CaptionsOf(type);
  for (std::size_t i = 0; i < captions.size(); ++i) {
    controls.value[i].caption = captions[i];
    controls.value[i].shown = true;
  }
  controls.acceptShown = true;
  controls.dontAcceptShown = true;
}

void NetworkEditor::Accept() {
  controls.selectHintShown = true;
  controls.analyzeEnabled = true;
  if (EditStage == 0) {
    double r = std::fabs(ParseValue(controls.value[0].text));
    if (!(r >= 0.1)) r = 50;
    session_.Value[0][1] = r;
    session_.Value[0][2] = ParseValue(controls.value[1].text);
    session_.Value[0][3] = session_.Value[0][4] = 0;
  } else if (EditStage >= 1 && EditStage <= kLastStage) {
    if (session_.ElementType[EditStage] == InsertPlaceholder) {
      Insert(EditStage);
    } else {
      AcceptStage(EditStage);
    }
  }
  FinishEdit();
}

void NetworkEditor::AcceptStage(int s) {
  StageValues parsed{};
  for (int k = 1; k <= kValueBoxes; ++k) parsed[k] = ParseValue(controls.value[k - 1].text);
  const StageValues v = AcceptedValues(session_, session_.ElementType[s], parsed);
  for (int k = 1; k <= kValueSlots; ++k) session_.Value[s][k] = v[k];
}

// Opens a gap at stage s: the stages after it move one place right (the last
// one is lost), the stage's part before the pick moves to s + 1, and s keeps
// the placeholder.
void NetworkEditor::Insert(int s) {
  for (int k = kLastStage; k >= 2; --k) {
    if (k - 1 > s) {
      session_.ElementType[k] = session_.ElementType[k - 1];
      for (int j = 1; j <= kValueSlots; ++j) session_.Value[k][j] = session_.Value[k - 1][j];
      session_.TwoPortBlocks[k] = session_.TwoPortBlocks[k - 1];
    } else if (k - 1 == s) {
      session_.ElementType[k] = SavedType;
      for (int j = 1; j <= kValueSlots; ++j) session_.Value[k][j] = SavedValue[j];
      session_.TwoPortBlocks[k] = session_.TwoPortBlocks[s];
      session_.ElementType[s] = InsertPlaceholder;
      for (int j = 1; j <= kValueSlots; ++j) session_.Value[s][j] = 0;
      session_.TwoPortBlocks[s] = {};
      break;
    }
  }
}

void NetworkEditor::DontAccept() {
  controls.selectHintShown = true;
  controls.analyzeEnabled = true;
  const int s = EditStage;
  if (s >= 1 && s <= kLastStage) {
    session_.ElementType[s] = SavedType;
    for (int k = 1; k <= kValueSlots; ++k) session_.Value[s][k] = SavedValue[k];
  }
  FinishEdit();
}

void NetworkEditor::FinishEdit() {
  for (ValueBox& box : controls.value) {
    box.shown = false;
    box.text.clear();
  }
  controls.acceptShown = false;
  controls.dontAcceptShown = false;
  controls.removeShown = false;
  controls.libraryHintShown = false;
  controls.selectHintShown = true;
  Redraw();
  EditStage = kNothing;
}

void NetworkEditor::Compact() {
  for (int s = 1; s <= kLastStage; ++s) {
    const int16_t type = session_.ElementType[s];
    const auto& v = session_.Value[s];
    bool keep = true;
    if (type >= SeriesCapacitor && type <= ShuntInductor) {
      keep = v[1] != 0 && v[2] != 0;
    } else if (type >= SeriesLine && type <= SeriesParallelLC) {
      keep = v[1] > 0 && v[2] > 0 && v[3] > 0;
    } else if (type == SeriesResistor || type == ShuntResistor) {
      keep = v[1] > 0;
    }
    if (!keep) {
      session_.ElementType[s] = Empty;
      for (int k = 1; k <= kValueSlots; ++k) session_.Value[s][k] = 0;
    }
  }
  for (int pass = 0; pass < kLastStage; ++pass) {
    for (int k = 1; k < kLastStage; ++k) {
      if (session_.ElementType[k] != Empty || session_.ElementType[k + 1] < 1) continue;
      session_.ElementType[k] = session_.ElementType[k + 1];
      for (int j = 1; j < kSlotCount; ++j) {
        session_.Value[k][j] = session_.Value[k + 1][j];
        session_.Value[k + 1][j] = 0;
      }
      session_.TwoPortBlocks[k] = std::exchange(session_.TwoPortBlocks[k + 1], {});
      session_.ElementType[k + 1] = Empty;
    }
  }
}

}  // namespace kalvex
