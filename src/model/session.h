#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <string>

#include "model/cable_names.h"
#include "model/load_model.h"
#include "model/two_port_block.h"
#include "platform/colour.h"

namespace kalvex {

// Codes stored in ElementType[s]. Stage 0 (the load) always holds Empty.
enum ElementKind : int16_t {
  Empty = 0,
  SeriesCapacitor = 1,
  ShuntCapacitor = 2,
  SeriesInductor = 3,
  ShuntInductor = 4,
  SeriesLine = 5,
  SeriesShortedStub = 6,
  SeriesOpenStub = 7,
  ShuntShortedStub = 8,
  ShuntOpenStub = 9,
  ShuntSeriesLC = 10,
  SeriesParallelLC = 11,
  SeriesResistor = 12,
  ShuntResistor = 13,
  // A stage opened by an insertion on the Design page that has no part yet.
  InsertPlaceholder = 14,
  // The parts between a real antenna and the radio: a lossy feed line and an
  // impedance transformer (unun, balun). Their slots are described in
  // model/elements.h.
  CoaxialCable = 15,
  Transformer = 16,
  // A part given by a two-port Touchstone file (measured or published); its
  // slots and data are described in model/two_port_block.h.
  TwoPort = 17,
};

// What each element type is called in texts: "series capacitor", ...
inline const char* PartName(int16_t type) {
  static const char* const kNames[] = {
      "wire", "series capacitor", "shunt capacitor", "series inductor", "shunt inductor",
      "line section", "series shorted stub", "series open stub", "shunt shorted stub",
      "shunt open stub", "shunt series LC", "series parallel LC", "series resistor",
      "shunt resistor", "unknown part", "coaxial cable", "transformer", "two-port block"};
  return type >= 0 && type <= TwoPort ? kNames[type] : "unknown part";
}

// A stage that holds a part: not empty, not the insert placeholder, not an unknown code.
inline bool IsPart(int16_t type) {
  return (type >= SeriesCapacitor && type <= ShuntResistor) || type == CoaxialCable ||
         type == Transformer || type == TwoPort;
}

inline constexpr int kLastStage = 5;       // stages 1..5 run from the load to the generator
inline constexpr int kStageCount = 21;     // ElementType(0..20)
inline constexpr int kValueStageCount = 11;  // Value(0..10, ·)
inline constexpr int kSlotCount = 11;        // Value(·, 0..10)
inline constexpr int kLoadPointCount = 1001;   // LoadFreq(0..1000)
inline constexpr int kSweepPointCount = 2001;  // SweepFreq(0..2000)

// A page position or count rounded to nearest for the session's 16-bit fields.
inline int16_t Rounded16(double x) { return static_cast<int16_t>(std::nearbyint(x)); }

// An on/off switch of the pages (QArcsOn, SweepShown, ...): one more, and past
// 1 back to 0.
inline void ToggleSwitch(int16_t& on) {
  on = static_cast<int16_t>(on + 1);
  if (on > 1) on = 0;
}

// The one session state of a running program: the network, the operating point,
// the settings the files carry, the load-data table, the last sweep and the
// page state that several pages share. Created once and passed by reference.
struct Session {
  // The network: stage 0 is the load (Value[0][1] = R, Value[0][2] = X).
  std::array<int16_t, kStageCount> ElementType{};
  std::array<std::array<double, kSlotCount>, kValueStageCount> Value{};
  // The file and data of each two-port block stage (type 17); the other
  // stages hold none. They move with their stage as its type and values do.
  std::array<TwoPortBlock, kValueStageCount> TwoPortBlocks{};

  // The operating point.
  double Frequency = 0;
  double SystemZ = 0;
  int16_t LoadSource = 0;  // 1 = the network's own load, 2 = the load-data table
  // How a sweep takes the network's own load away from Frequency; the
  // commands and windows that offer the choice set it on their own copy.
  LoadModel SweepLoadModel = LoadModel::Fixed;
  int16_t PointIndex = 0;
  int16_t DataIndex = 0;

  // Results of the last calculation.
  double InputR = 0;
  double InputX = 0;
  double Rho = 0;

  // Component defaults and chart settings kept in files.
  float DefaultCapacitorQ = 0;
  float DefaultInductorQ = 0;
  float ChartAspect = 0;
  float QCircle = 0;
  float VSWRCircle = 0;

  // Sweep settings and data.
  double SweepStart = 0;
  double SweepStop = 0;
  int16_t SweepPoints = 0;
  int16_t SavedSweepPoints = 0;
  std::array<double, kLoadPointCount> LoadFreq{};
  std::array<double, kLoadPointCount> LoadR{};
  std::array<double, kLoadPointCount> LoadX{};
  std::array<double, kSweepPointCount> SweepFreq{};
  std::array<double, kSweepPointCount> SweepR{};
  std::array<double, kSweepPointCount> SweepX{};
  std::array<double, kSweepPointCount> SweepRho{};
  std::array<double, kSweepPointCount> SweepAngle{};
  std::array<double, kSweepPointCount> SweepVSWR{};

  // Options.
  double VelocityFactor = 0;

  // Program identity and constants.
  std::string Version;
  double Pi = 0;

  // Analysis page selection and tuning.
  int16_t SelectedStage = 0;
  std::array<int16_t, kStageCount> PartRightEdge{};
  float ListingScale = 0;  // scale of the network strip's symbols
  float TuneStepPercent = 0;
  std::array<int16_t, kSlotCount> TopStepMode{};
  std::array<int16_t, kSlotCount> BottomStepMode{};
  std::array<float, kSlotCount> TopStepBase{};
  std::array<float, kSlotCount> BottomStepBase{};

  // Chart view and overlays.
  float ChartRadius = 0;
  float ChartZoom = 0;
  float ChartCentreX = 0;
  float ChartCentreY = 0;
  int16_t GridType = 0;
  int16_t ArcsMode = 0;
  int16_t QArcsOn = 0;
  int16_t VSWRCircleOn = 0;
  Colour ArcColour = 0;
  Colour QArcColour = 0;
  Colour AdmittanceGridColour = 0;
  Colour ImpedanceGridColour = 0;
  int16_t SweepShown = 0;

  // Radius of the vertical coil arcs and line-tube ends of the schematic
  // symbols, set once by the welcome page from its proportions.
  float CoilArcRadius = 80;

  // Normal background colour of the controls of the Design and Analysis pages.
  Colour DesignControlColour = 0;
  Colour AnalysisControlColour = 0;

  // The name last chosen for a network or sweep-data file.
  std::string FileName;

  // The cable catalogue read at start-up: the drawings name a cable stage
  // after the cable whose numbers it holds, and the cable dialog offers them.
  CableCatalogue Cables;
};

// Start-up steps 1 and 2: identity, constants and view state, then an empty
// network with a 50 + j0 load at 1 MHz in a 50 ohm system.
void InitialiseSession(Session& session);

// The network defaults that the start-up and the file readers fall back on:
// every stage empty, load 50 + j0, 1 MHz, 50 ohm system.
void SetNetworkDefaults(Session& session);

}  // namespace kalvex
