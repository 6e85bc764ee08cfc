#include "ui/page.h"

#include <QCloseEvent>
#include <QFontInfo>
#include <QStatusTipEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <QMouseEvent>
#include <QPainter>
#include <cmath>

#include "model/network_state.h"
#include "model/vector_state.h"
#include "platform/pages.h"
#include "ui/page_frame.h"
#include "ui/page_renderer.h"
#include "ui/session_history.h"
#include "ui/painter_canvas.h"

namespace kalvex {
namespace {

int ButtonNumber(Qt::MouseButtons buttons) {
  if (buttons == Qt::LeftButton) return 1;
  if (buttons == Qt::RightButton) return 2;
  return 0;
}

}  // namespace

Page::Page(QSizeF logicalSize, QWidget* parent) : QWidget(parent), logicalSize_(logicalSize) {
  // The page paints its whole surface from the display list.
  setAttribute(Qt::WA_OpaquePaintEvent);
  // A click on the drawing takes the keyboard away from the boxes.
  setFocusPolicy(Qt::ClickFocus);
  // A page is shown maximised, filling the screen as its logical extents
  // intend; its normal geometry, which un-maximising gives, is three quarters
  // of the available area, centred, so that the window with its frame fits.
  if (const QScreen* screen = QGuiApplication::primaryScreen()) {
    const QRect available = screen->availableGeometry();
    const QSize normal = available.size() * 3 / 4;
    setGeometry(QRect(available.center() - QPoint(normal.width() / 2, normal.height() / 2), normal));
  }
}

void Page::FollowLayoutWithTab() {
  std::vector<QWidget*> controls;
  for (const Placement& placement : placements_) {
    if (!placement.control.isNull() && placement.control->focusPolicy() & Qt::TabFocus) {
      controls.push_back(placement.control);
    }
  }
  std::stable_sort(controls.begin(), controls.end(), [this](QWidget* a, QWidget* b) {
    const QRectF& pa = PlaceOf(a);
    const QRectF& pb = PlaceOf(b);
    return pa.top() != pb.top() ? pa.top() < pb.top() : pa.left() < pb.left();
  });
  for (std::size_t i = 1; i < controls.size(); ++i) setTabOrder(controls[i - 1], controls[i]);
}

const QRectF& Page::PlaceOf(QWidget* control) const {
  for (const Placement& placement : placements_) {
    if (placement.control == control) return placement.place;
  }
  static const QRectF kNowhere;
  return kNowhere;
}

QRectF Page::Frame() const {
  // The area between the menu bar and the status line.
  const int top = menuBar_ ? menuBar_->height() : 0;
  const int bottom = statusLine_ ? statusLine_->height() : 0;
  const QSizeF area(width(), std::max(1, height() - top - bottom));
  return PageFrame(area, Shape()).translated(0, top);
}

QSizeF Page::Shape() const {
  const QScreen* shown = screen() != nullptr ? screen() : QGuiApplication::primaryScreen();
  return ownProportions_ || shown == nullptr ? logicalSize_ : QSizeF(shown->availableGeometry().size());
}

void Page::SetMenuBar(QMenuBar* menus) {
  menuBar_ = menus;
  resizeEvent(nullptr);
}

void Page::SetStatusLine(QLabel* status) {
  statusLine_ = status;
  status->setAutoFillBackground(true);
  status->setWordWrap(true);
  // Each control's tip shows in the status line while the mouse is over it.
  for (QWidget* control : findChildren<QWidget*>()) {
    if (control->statusTip().isEmpty()) control->setStatusTip(control->toolTip());
  }
  resizeEvent(nullptr);
}

void Page::ShowStatus(const QString& text, const QString& brief) {
  status_ = text;
  statusBrief_ = brief;
  if (statusLine_ && FitStatus()) resizeEvent(nullptr);
}

void Page::ScreenChanged() {
  resizeEvent(nullptr);
  update();
}

void Page::ShowMatchStatus(const Session& session) {
  ShowStatus(QString::fromStdString(MatchStatusText(session)),
             QString::fromStdString(MatchStatusText(session, StatusForm::Brief)));
}

void Page::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (QWindow* shown = window()->windowHandle()) {
    connect(shown, &QWindow::screenChanged, this, &Page::ScreenChanged, Qt::UniqueConnection);
  }
  SessionHistory* history = SessionHistory::Instance();
  // A window shown again by the window system (un-minimised) is no new visit.
  if (!followsHistory_ || history == nullptr || event->spontaneous()) return;
  history->SetPage(this);
  history->Settle();
}

bool Page::event(QEvent* event) {
  if (event->type() == QEvent::StatusTip && statusLine_) {
    // A tip shows in the line as it stands: hovering never moves the page.
    const QString tip = static_cast<QStatusTipEvent*>(event)->tip();
    if (tip.isEmpty()) {
      FitStatus();
    } else {
      statusLine_->setText(tip);
    }
    return true;
  }
  return QWidget::event(event);
}

QPointF Page::ToPage(QPointF widgetPoint) const {
  const QRectF frame = Frame();
  return {(widgetPoint.x() - frame.x()) * logicalSize_.width() / frame.width(),
          (widgetPoint.y() - frame.y()) * logicalSize_.height() / frame.height()};
}

void Page::Place(QWidget* control, double left, double top, double width, double height) {
  placements_.push_back({control, QRectF(left, top, width, height)});
  ApplyPlacement(placements_.back());
}

void Page::ApplyPlacement(const Placement& placement) {
  if (placement.control.isNull()) return;
  const QRectF frame = Frame();
  const double sx = frame.width() / logicalSize_.width();
  const double sy = frame.height() / logicalSize_.height();
  const QRectF& p = placement.place;
  // A control inside a frame (a group box) is placed in the frame's own
  // units: only the page's own controls stand beside the menu bar and margins.
  const QPointF origin = placement.control->parentWidget() == this ? frame.topLeft() : QPointF();
  placement.control->setGeometry(static_cast<int>(std::lround(origin.x() + p.x() * sx)),
                                 static_cast<int>(std::lround(origin.y() + p.y() * sy)),
                                 static_cast<int>(std::lround(p.width() * sx)),
                                 static_cast<int>(std::lround(p.height() * sy)));
  SetPixelSize(placement.control, FontPixels(std::min(sx, sy)));
}

// Glyphs keep their proportions: the font follows the smaller of the two
// scales, so text fits its place however the window is proportioned.
int Page::FontPixels(double scale) const {
  return std::max(6, static_cast<int>(std::lround(PageFontSize(logicalSize_.height()) * scale)));
}

void Page::SetPixelSize(QWidget* control, int pixels) {
  QFont font = control->font();
  if (font.pixelSize() == pixels) return;
  font.setPixelSize(pixels);
  control->setFont(font);
}

void Page::resizeEvent(QResizeEvent* event) {
  if (event != nullptr) QWidget::resizeEvent(event);
  const int pixels = ChromeFontPixels();
  if (menuBar_) {
    SetPixelSize(menuBar_, pixels);
    menuBar_->setGeometry(0, 0, width(), menuBar_->sizeHint().height());
  }
  if (statusLine_) {
    SetPixelSize(statusLine_, pixels);
    FitStatus();
  }
  for (const Placement& placement : placements_) ApplyPlacement(placement);
}

int Page::ChromeFontPixels() const {
  const QRectF whole = PageFrame(size(), Shape());
  return std::max(9, FontPixels(whole.height() / logicalSize_.height()));
}

double FollowPageFont(QWidget* dialog) {
  const Page* page = nullptr;
  for (QWidget* w = dialog->parentWidget(); w != nullptr && page == nullptr; w = w->parentWidget()) {
    page = qobject_cast<const Page*>(w);
  }
  const int own = QFontInfo(dialog->font()).pixelSize();
  if (page == nullptr || page->ChromeFontPixels() <= own) return 1;
  QFont font = dialog->font();
  font.setPixelSize(page->ChromeFontPixels());
  dialog->setFont(font);
  return double(font.pixelSize()) / own;
}

void ScalePlaced(QWidget* dialog, double factor) {
  if (factor == 1) return;
  const auto scaled = [factor](int length) { return static_cast<int>(std::lround(length * factor)); };
  for (QWidget* control : dialog->findChildren<QWidget*>()) {
    const QRect place = control->geometry();
    control->setGeometry(scaled(place.x()), scaled(place.y()), scaled(place.width()), scaled(place.height()));
  }
  dialog->setFixedSize(scaled(dialog->width()), scaled(dialog->height()));
}

// The status line shows its full text where it fits, else the brief one,
// wrapped between figures when even that is too wide; it grows to show every
// line. Returns whether its height changed, and with it the page's frame.
bool Page::FitStatus() {
  const int room = width() - 2 * statusLine_->margin() - statusLine_->contentsMargins().left() -
                   statusLine_->contentsMargins().right();
  const bool fits = statusLine_->fontMetrics().horizontalAdvance(status_) <= room;
  statusLine_->setText(fits || statusBrief_.isEmpty() ? status_ : statusBrief_);
  const int wrapped = statusLine_->heightForWidth(width());
  const int h = wrapped > 0 ? wrapped : statusLine_->sizeHint().height();
  const bool grown = h != statusLine_->height();
  statusLine_->setGeometry(0, height() - h, width(), h);
  return grown;
}

// Replays commands [first, end) of the drawing onto `painter`, in the page's
// place in the window.
void Page::PaintRange(QPainter& painter, std::size_t first, std::size_t end) const {
  const QRectF frame = Frame();
  const double sx = frame.width() / logicalSize_.width();
  const double sy = frame.height() / logicalSize_.height();
  painter.save();
  painter.translate(frame.topLeft());
  painter.scale(sx, sy);
  {
    PainterCanvas canvas(painter, logicalSize_, std::sqrt(sx * sy));
    drawing_.ReplayRange(canvas, first, end);
  }
  painter.restore();
}

void Page::paintEvent(QPaintEvent*) {
  ClearUpperVectorState();
  QPainter painter(this);
  const QColor margins = PainterCanvas::ToQColor(kPageBackground);
  const std::size_t background = drawing_.BackgroundEnd();
  if (background == 0 || !cacheBackground_) {
    // The margins beside the page, where the window is not in the screen's proportions.
    painter.fillRect(rect(), margins);
    PaintRange(painter, 0, drawing_.Commands().size());
    return;
  }
  // The background (grids, axis, outline, caption) changes only with the view:
  // it is painted once into an image at the window's device pixels and shown
  // again until its commands, the window's size or its pixel ratio change.
  const qreal ratio = devicePixelRatioF();
  const BackgroundKey wanted{drawing_.BackgroundKey(), size(), Frame(), ratio};
  if (!(background_.key == wanted) || background_.image.isNull()) {
    background_.key = wanted;
    background_.image = QImage(size() * ratio, QImage::Format_ARGB32_Premultiplied);
    background_.image.setDevicePixelRatio(ratio);
    QPainter layer(&background_.image);
    layer.fillRect(rect(), margins);
    PaintRange(layer, 0, background);
    ++backgroundPaints_;
  }
  painter.drawImage(0, 0, background_.image);
  PaintRange(painter, background, drawing_.Commands().size());
}

void Page::mousePressEvent(QMouseEvent* event) {
  const QPointF p = ToPage(event->position());
  OnMouseDown(ButtonNumber(event->buttons()), p.x(), p.y());
}

void Page::mouseMoveEvent(QMouseEvent* event) {
  const QPointF p = ToPage(event->position());
  OnMouseMove(ButtonNumber(event->buttons()), p.x(), p.y());
}

void Page::mouseReleaseEvent(QMouseEvent* event) {
  const QPointF p = ToPage(event->position());
  OnMouseUp(ButtonNumber(event->button()), p.x(), p.y());
}

void Page::ExportImage(Dialogs& dialogs, const std::string& title, PageSize page) {
  const std::string chosen = dialogs.ChooseSaveFile(
      title, "PNG images (*.png)|*.png|SVG drawings (*.svg)|*.svg|PDF documents (*.pdf)|*.pdf", "");
  if (chosen.empty()) return;
  const QSizeF shown = Frame().size();
  const std::string failure =
      RenderToFile(Drawing(), page, static_cast<int>(shown.width()), static_cast<int>(shown.height()),
                   chosen, 0, {shown.width(), shown.height()});
  if (!failure.empty()) dialogs.Message("The image was not exported: " + failure + ".");
}

void Page::CloseByProgram() {
  closingByProgram_ = true;
  close();
}

void Page::SwitchTo(Page* next) {
  next->setAttribute(Qt::WA_DeleteOnClose);
  // The next page takes this one's place and size, so the window stays put.
  if (isMaximized()) {
    next->showMaximized();
  } else {
    next->setGeometry(geometry());
    next->show();
  }
  setAttribute(Qt::WA_DeleteOnClose);
  CloseByProgram();
}

void Page::closeEvent(QCloseEvent* event) {
  if (closingByProgram_ || OnUserClose()) {
    event->accept();
  } else {
    event->ignore();
  }
}

void Page::OnMouseDown(int, double, double) {}
void Page::OnMouseMove(int, double, double) {}
void Page::OnMouseUp(int, double, double) {}
bool Page::OnUserClose() { return true; }

}  // namespace kalvex
