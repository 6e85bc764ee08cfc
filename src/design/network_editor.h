#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "design/schematic.h"
#include "model/session.h"
#include "platform/display_list.h"

namespace kalvex {

// A stage's values 1..5 (index 0 unused): the four of the value boxes, and
// the fifth a cable's k2 needs.
inline constexpr int kValueSlots = 5;
inline constexpr int kValueBoxes = 4;
using StageValues = std::array<double, kValueSlots + 1>;

// The values Accept stores for a stage of `type` from the numbers its boxes
// gave: magnitudes, minimums, the session's default Q for a Q of 0, and the
// reference frequency within 10 kHz..10 GHz, as the type's rules say; a
// cable's or transformer's values within their ranges (design/feed_part_limits.h).
// Every way a stage is filled (Accept, a computed match, the cable dialog)
// goes through it.
StageValues AcceptedValues(const Session& session, int16_t type, const StageValues& parsed);

// One caption and text box of the value entry (lblValueN over txtValueN).
struct ValueBox {
  bool shown = false;
  std::string caption;
  std::string text;
};

// What the editing controls of the Design page show. The page mirrors it into
// its widgets after every action and writes typed text back into `value`.
struct EditorControls {
  std::array<ValueBox, kValueBoxes> value;
  bool acceptShown = false;      // cmdAccept
  bool dontAcceptShown = false;  // cmdDontAccept
  bool removeShown = false;      // lblRemove: stage five will be lost
  bool selectHintShown = true;   // lblSelectElementToEdit
  bool libraryHintShown = false; // lblClickOnALibraryPart
  bool analyzeEnabled = true;    // cmdAnalyze waits while a pick is open
};

// The network editing of the Design page: select the load or a stage in the
// schematic, pick a part from the library, enter its values, then accept
// (values coerced into range), refuse (the stage as it was), insert a stage
// or compact the network. It draws the schematic, the library, the selection
// frame and the preview of the picked part.
class NetworkEditor {
 public:
  NetworkEditor(Session& session, float coilArcRadius);

  static constexpr int16_t kNothing = 11;  // EditStage when no edit is open

  // The page has opened: nothing selected, network and library drawn.
  void Open();
  // A mouse press anywhere on the page, in page units. True when it selected
  // a stage.
  bool MouseDown(double x, double y);
  void Accept();
  void DontAccept();
  // Clears the incomplete stages and moves the others left to close the gaps;
  // the page then reopens itself.
  void Compact();

  // Plays the page's drawing (background, library, schematic with its frame,
  // preview) onto `canvas`.
  void Compose(Canvas& canvas) const;

  EditorControls controls;
  int16_t EditStage = kNothing;
  int16_t LibraryArmed = 0;
  int16_t SavedType = 0;
  // The stage's values before the last pick (1..5): a part of the Design
  // page's library in single precision, a cable or transformer exactly, so
  // that its catalogue name survives a pick refused.
  StageValues SavedValue{};
  StagePositions StageX{};

 private:
  void Redraw();
  void Frame(double left, double right);
  void SelectLoad();
  void SelectStage(double x);
  void PickLibraryPart(double x, double y);
  void Prefill(int16_t type);
  void ShowValueBoxes(int16_t type);
  void AcceptStage(int stage);
  void Insert(int stage);
  void FinishEdit();

  Session& session_;
  float coilArcRadius_;
  DisplayList library_;
  DisplayList network_;  // the schematic and the selection frame
  DisplayList preview_;
};

// The part a library click picks: 0..14, or -1 outside the two rows.
int LibraryPartAt(double x, double y);

}  // namespace kalvex
