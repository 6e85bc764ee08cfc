#pragma once

#include "analysis/band_plot.h"
#include "model/session.h"
#include "platform/dialogs.h"
#include "ui/page.h"

namespace kalvex {

// "Band": the band plot of the session's network in a window of its own,
// opened by Ctrl+G on the Analysis and Tabulate pages. It follows every change
// the Analysis page redraws for, resizes without stretching, exports by
// Ctrl+E and prints by Ctrl+P; V, R and G choose VSWR, return loss or |Gamma|.
class BandWindow : public Page {
  Q_OBJECT

 public:
  // Shows the one band window, opening it when none is open; `modal` for one
  // opened over a modal page.
  static BandWindow* Show(const Session& session, Dialogs& dialogs, bool modal = false);

  // Draws the open band window again, if there is one.
  static void RefreshOpen();

  void Show(BandQuantity quantity);
  BandQuantity Quantity() const { return quantity_; }
  void Show(LoadModel loadModel);
  LoadModel LoadModelShown() const { return loadModel_; }

 private:
  BandWindow(const Session& session, Dialogs& dialogs);
  void Refresh();
  void Print();

  const Session& session_;
  Dialogs& dialogs_;
  BandQuantity quantity_ = BandQuantity::VSWR;
  LoadModel loadModel_ = LoadModel::Fixed;
};

}  // namespace kalvex
