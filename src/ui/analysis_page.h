#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <array>

#include "analysis/redraw.h"
#include "chart/chart_view.h"
#include "chart/overlay_settings.h"
#include "model/session.h"
#include "platform/dialogs.h"
#include "ui/page.h"
#include "ui/tuning_controls.h"

namespace kalvex {

// The Analysis page: the Smith chart with the network's path, its view
// controls (zoom, size reset, right-button drag, aspect), the grid types, the
// Q arcs, VSWR circle and frequency sweep with their setup dialogs, the point
// readout while the left button is held, and the ways back to the Design page
// and to the exit dialog. Its close box saves the last session and
// ends the program.
class AnalysisPage : public Page {
  Q_OBJECT

 public:
  AnalysisPage(Session& session, Dialogs& dialogs);

  QPushButton* cmdDesign;
  QPushButton* cmdIn;
  QPushButton* cmdOut;
  QPushButton* cmdReset;
  QPushButton* cmdDisplay;
  QPushButton* cmdExit;
  QPushButton* cmdQsetup;
  QPushButton* cmdQon;
  QPushButton* cmdVSWRsetup;
  QPushButton* cmdVSWRon;
  QPushButton* cmdSweepSetup;
  QPushButton* cmdSweep;
  QPushButton* cmdTabulate;
  QPushButton* cmdPrint;
  QLabel* lblRightClick;
  QLabel* lblAspect;
  QLineEdit* txtAspect;
  QLineEdit* txtAspectEntry;
  QToolButton* UpDown1Up;    // the spinner bound to txtAspectEntry
  QToolButton* UpDown1Down;

  QLabel* lblClickPart;
  TuningControls* tuning;

  // The readout: caption and value labels of Rho, VSWR, R.L, R, jX, G, jB.
  std::array<QLabel*, 7> readoutCaptions;
  std::array<QLabel*, 7> readoutValues;

  // Every change ends here: the strip and the chart drawn again.
  void Redraw();

 protected:
  void OnMouseDown(int button, double x, double y) override;
  void OnMouseMove(int button, double x, double y) override;
  void OnMouseUp(int button, double x, double y) override;
  bool OnUserClose() override;
  void Reload() override;

 private:
  void ShowSwitch(QPushButton* button, bool on);
  void SetUpOverlay(Overlay overlay);
  void OpenSweepSetup();
  void ShowZoomButtons(ZoomButtons buttons);
  void AspectEntered(const QString& text);
  void SetAspectText(const QString& text);
  void StepAspect(int percent);
  void ShowReadout(double x, double y);
  void HideReadout();
  void GoToDesignPage();
  void ShowApplied(const QString& step);

  Session& session_;
  Dialogs& dialogs_;
  ChartDrag drag_;
};

}  // namespace kalvex
