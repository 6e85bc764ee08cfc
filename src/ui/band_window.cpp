#include "ui/band_window.h"

#include <QPointer>

#include "ui/controls.h"
#include "ui/keys.h"

namespace kalvex {
namespace {

QPointer<BandWindow> openWindow;

}  // namespace

BandWindow* BandWindow::Show(const Session& session, Dialogs& dialogs, bool modal) {
  if (openWindow.isNull()) {
    openWindow = new BandWindow(session, dialogs);
    openWindow->setAttribute(Qt::WA_DeleteOnClose);
  }
  openWindow->setWindowModality(modal ? Qt::ApplicationModal : Qt::NonModal);
  openWindow->Refresh();
  openWindow->show();
  openWindow->raise();
  return openWindow;
}

void BandWindow::RefreshOpen() {
  if (!openWindow.isNull()) openWindow->Refresh();
}

BandWindow::BandWindow(const Session& session, Dialogs& dialogs)
    : Page({kBandPage.width, kBandPage.height}), session_(session), dialogs_(dialogs) {
  setWindowTitle("Band");
  KeepOwnProportions();
  BindKeys(this, dialogs_,
           {{QKeySequence(Qt::Key_V), "VSWR against frequency", [this] { Show(BandQuantity::VSWR); }},
            {QKeySequence(Qt::Key_R), "Return loss against frequency",
             [this] { Show(BandQuantity::ReturnLoss); }},
            {QKeySequence(Qt::Key_G), "|Gamma| against frequency", [this] { Show(BandQuantity::Gamma); }},
            {QKeySequence(Qt::Key_L), "The load fixed (R + jX at every frequency) or fitted (R with the C or L of X)",
             [this] { Show(loadModel_ == LoadModel::Fixed ? LoadModel::Fitted : LoadModel::Fixed); }},
            {QKeySequence(Qt::CTRL | Qt::Key_E), "Export the plot as PNG, SVG or PDF",
             [this] { ExportImage(dialogs_, "Export band plot", kBandPage); }},
            {QKeySequence(Qt::CTRL | Qt::Key_P), "Print the plot", [this] { Print(); }}});
}

void BandWindow::Show(BandQuantity quantity) {
  quantity_ = quantity;
  Refresh();
}

void BandWindow::Show(LoadModel loadModel) {
  loadModel_ = loadModel;
  Refresh();
}

void BandWindow::Refresh() {
  Drawing().Clear(kWhite);
  DrawBandPlot(ComputeBandFigures(session_, kDefaultThresholds, loadModel_), quantity_, Drawing());
  update();
}

void BandWindow::Print() {
  std::string error;
  const std::unique_ptr<PrintJob> job = dialogs_.StartPrint(kBandPage, error);
  if (!job) return;  // a cancelled print dialog says nothing
  DrawBandPlot(ComputeBandFigures(session_, kDefaultThresholds, loadModel_), quantity_, job->Page());
  if (const std::string failure = job->Finish(); !failure.empty()) dialogs_.Message(failure);
}

}  // namespace kalvex
