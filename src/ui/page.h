#pragma once

#include <QLabel>
#include <QMenuBar>
#include <QImage>
#include <QPainter>
#include <QPointer>
#include <QSizeF>
#include <QWidget>
#include <vector>

#include "model/session.h"
#include "platform/dialogs.h"
#include "platform/display_list.h"
#include "platform/pages.h"

namespace kalvex {

// A window that works in logical page units, as every Kalvex page does: its
// drawing is a display list in page units drawn in the window in the
// proportions it has filling the screen (see Frame), its controls keep their
// places and fonts in proportion when the window is resized, and mouse events
// arrive in page units with the button (1 left, 2 right, 0 for anything else).
class Page : public QWidget {
  Q_OBJECT

 public:
  // The font of the menu bar and the status line, in pixels: the page's at
  // the scale it has in the whole window, a readable size at the least.
  int ChromeFontPixels() const;

  explicit Page(QSizeF logicalSize, QWidget* parent = nullptr);

  // Puts `control` at a place given in page units and keeps it there.
  void Place(QWidget* control, double left, double top, double width, double height);

  // Tab then visits the placed controls row by row, left to right, as the
  // page lays them out. Called once a page has placed its controls.
  void FollowLayoutWithTab();

  // The page's drawing surface; call update() after drawing into it.
  DisplayList& Drawing() { return drawing_; }

  // Ctrl+E: the page's drawing as it stands, through the renderer kalvex-cli
  // render uses, at the size the window shows it, without margins, to a PNG,
  // SVG or PDF file by the chosen type (a name without a type takes the
  // chosen filter's); a failure is said.
  void ExportImage(Dialogs& dialogs, const std::string& title, PageSize page);

  // A menu bar above the page and a status line below it, outside the page:
  // the page keeps its layout and proportions in the area between them.
  void SetMenuBar(QMenuBar* menus);
  void SetStatusLine(QLabel* status);
  // The status line's own text, and a shorter form of it for a narrow
  // window; a hovered control's tip shows over it.
  void ShowStatus(const QString& text, const QString& brief = {});
  QLabel* StatusLine() const { return statusLine_; }
  // The match at the working frequency, in full or brief as the line's width allows.
  void ShowMatchStatus(const Session& session);

  // Draws the page in its own proportions rather than the screen's: a window
  // that is not a page of the screen (the band plot) resizes without
  // stretching.
  void KeepOwnProportions() { ownProportions_ = true; }

  // Makes this page the one the history's undo and redo act on while it is
  // shown (see SessionHistory); its showing takes the session in as it is.
  void FollowHistory() { followsHistory_ = true; }
  // Before an undo or redo: drops what is half done and records what was
  // typed but not yet entered.
  virtual void FinishPendingEdit() {}
  // Shows the session again after an undo or redo changed it.
  virtual void Reload() {}

  // Closes the page as the program, not the user, does.
  void CloseByProgram();

  // Leaves this page for `next`: shows it and closes this one. Both pages are
  // on the heap and are deleted when closed.
  void SwitchTo(Page* next);

  QPointF ToPage(QPointF widgetPoint) const;
  // Where the page is drawn in the window: in the proportions of the screen's
  // available area, as large as fits, centred (see PageFrame).
  QRectF Frame() const;
  QSizeF LogicalSize() const { return logicalSize_; }

  // How often the cached background was painted (for tests), and whether it
  // is used at all (a page painted without it gives the same pixels).
  int BackgroundPaints() const { return backgroundPaints_; }
  void CacheBackground(bool on) { cacheBackground_ = on; }

 protected:
  virtual void OnMouseDown(int button, double x, double y);
  virtual void OnMouseMove(int button, double x, double y);
  virtual void OnMouseUp(int button, double x, double y);
  // The user closed the window with its close box (or the window system
  // closed it). Returns whether the window closes; a page that stays open
  // leaves the way its own buttons would.
  virtual bool OnUserClose();

  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool event(QEvent* event) override;
  // A page that follows the history becomes the one an undo shows.
  void showEvent(QShowEvent* event) override;

 private:
  struct Placement {
    QPointer<QWidget> control;
    QRectF place;
  };
  void ApplyPlacement(const Placement& placement);
  // The page's font in pixels at `scale` window pixels a page unit.
  int FontPixels(double scale) const;
  static void SetPixelSize(QWidget* control, int pixels);
  // The proportions the page is drawn in: the screen's, or its own.
  QSizeF Shape() const;
  bool FitStatus();
  // Another screen may have other proportions: the page is placed anew.
  void ScreenChanged();
  const QRectF& PlaceOf(QWidget* control) const;

  QSizeF logicalSize_;
  DisplayList drawing_;
  std::vector<Placement> placements_;
  bool closingByProgram_ = false;
  bool ownProportions_ = false;
  bool followsHistory_ = false;
  // The cached background is good for one drawing in one place: a screen of
  // other proportions or a taller menu bar moves the frame.
  struct BackgroundKey {
    uint64_t commands = 0;
    QSize size;
    QRectF frame;
    qreal ratio = 0;
    bool operator==(const BackgroundKey&) const = default;
  };
  struct BackgroundLayer {
    BackgroundKey key;
    QImage image;
  };
  void PaintRange(QPainter& painter, std::size_t first, std::size_t end) const;
  BackgroundLayer background_;
  bool cacheBackground_ = true;
  int backgroundPaints_ = 0;
  QPointer<QMenuBar> menuBar_;
  QPointer<QLabel> statusLine_;
  QString status_;
  QString statusBrief_;
};

// A dialog opened over a page takes the page's menu bar font where that is
// larger than its own, so that on a large screen it reads as the page does.
// Returns the factor its text grew by, for its initial size (1 where the
// system's font is the larger).
double FollowPageFont(QWidget* dialog);

// A dialog whose controls are placed by hand grows with its text: its fixed
// size and every control's place multiplied by `factor`.
void ScalePlaced(QWidget* dialog, double factor);

}  // namespace kalvex
