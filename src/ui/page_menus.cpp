#include "ui/page_menus.h"

#include <QKeyEvent>
#include <QLineEdit>

#include "ui/keys.h"
#include "ui/session_history.h"

namespace kalvex {
namespace {

void Undo() {
  if (SessionHistory* history = SessionHistory::Instance()) history->Undo();
}
void Redo() {
  if (SessionHistory* history = SessionHistory::Instance()) history->Redo();
}

bool IsHistoryKey(const QKeyEvent& key) {
  const QKeyCombination pressed = key.keyCombination();
  return pressed == QKeyCombination(Qt::CTRL, Qt::Key_Z) ||
         pressed == QKeyCombination(Qt::CTRL | Qt::SHIFT, Qt::Key_Z) ||
         pressed == QKeyCombination(Qt::CTRL, Qt::Key_Y);
}

// A text box claims its undo keys for its own text before any shortcut sees
// them; refusing the claim lets them reach the page's history keys.
class HistoryKeysPastBoxes : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::ShortcutOverride || !IsHistoryKey(*static_cast<QKeyEvent*>(event))) {
      return false;
    }
    event->ignore();
    return true;
  }
};

// Undo or Redo with the step it acts on ("Undo Tune stage 2"), enabled while
// there is one.
void HistoryItem(QMenu* menu, bool undo, const QString& keys) {
  QAction* item = menu->addAction(undo ? "Undo" : "Redo");
  SessionHistory* history = SessionHistory::Instance();
  item->setEnabled(false);
  if (history == nullptr) return;
  QObject::connect(item, &QAction::triggered, menu, undo ? Undo : Redo);
  QUndoStack* stack = &history->Stack();
  const auto show = [item, stack, undo, keys] {
    const QString step = undo ? stack->undoText() : stack->redoText();
    item->setText(QString(undo ? "Undo" : "Redo") + (step.isEmpty() ? QString() : " " + step) + "\t" + keys);
    item->setEnabled(undo ? stack->canUndo() : stack->canRedo());
  };
  QObject::connect(stack, &QUndoStack::indexChanged, item, show);
  // A step merged with the one before renames it.
  QObject::connect(stack, &QUndoStack::undoTextChanged, item, show);
  show();
}

// An item showing its key beside its text; the key itself is bound on the
// page, so the menu only shows it.
void AddItem(QMenu* menu, const QString& text, const QString& keys, const std::function<void()>& action) {
  QAction* item = menu->addAction(keys.isEmpty() ? text : text + "\t" + keys);
  item->setEnabled(static_cast<bool>(action));
  if (action) QObject::connect(item, &QAction::triggered, menu, action);
}

}  // namespace

std::vector<Key> HistoryKeys(QWidget* page) {
  auto* filter = new HistoryKeysPastBoxes(page);
  for (QLineEdit* box : page->findChildren<QLineEdit*>()) box->installEventFilter(filter);
  return {{QKeySequence(Qt::CTRL | Qt::Key_Z), "Undo", Undo},
          {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z), "Redo", Redo},
          {QKeySequence(Qt::CTRL | Qt::Key_Y), "Redo", Redo}};
}

QMenuBar* BuildMenuBar(QWidget* page, Dialogs& dialogs, const std::string& version,
                       const PageCommands& c) {
  auto* bar = new QMenuBar(page);
  QMenu* file = bar->addMenu("&File");
  AddItem(file, "Get net", "Ctrl+O", c.getNet);
  AddItem(file, "Save net", "Ctrl+S", c.saveNet);
  AddItem(file, "Get freq/load", "Ctrl+L", c.getLoad);
  AddItem(file, "Live load", "Ctrl+Shift+L", c.liveLoad);
  AddItem(file, "Write SPICE deck", "Ctrl+Shift+E", c.writeSpice);
  if (c.saveTwoPort) AddItem(file, "Save as two-port", "Ctrl+Shift+S", c.saveTwoPort);
  file->addSeparator();
  AddItem(file, "Export image", "Ctrl+E", c.exportImage);
  AddItem(file, "Print", "Ctrl+P", c.print);
  file->addSeparator();
  AddItem(file, "Exit", "", c.exit);

  QMenu* edit = bar->addMenu("&Edit");
  if (c.undoable) {
    HistoryItem(edit, true, "Ctrl+Z");
    HistoryItem(edit, false, "Ctrl+Shift+Z");
  } else {
    AddItem(edit, "Undo", "Ctrl+Z", {});
    AddItem(edit, "Redo", "Ctrl+Shift+Z", {});
  }
  AddItem(edit, "Setup", "Ctrl+,", c.setup);
  AddItem(edit, "Cable or transformer...", "Ctrl+Shift+C", c.stagePart);
  if (c.twoPortBlock) AddItem(edit, "Two-port from file\u2026", "Ctrl+B", c.twoPortBlock);

  QMenu* view = bar->addMenu("&View");
  AddItem(view, "Zoom in", "+", c.zoomIn);
  AddItem(view, "Zoom out", "-", c.zoomOut);
  AddItem(view, "Next grid type", "", c.gridType);
  AddItem(view, "Q arcs on/off", "", c.qArcs);
  AddItem(view, "VSWR circle on/off", "", c.vswrCircle);
  AddItem(view, "Sweep on/off", "", c.sweep);
  AddItem(view, "Band plot", "Ctrl+G", c.band);

  QMenu* tools = bar->addMenu("&Tools");
  AddItem(tools, "Match", "Ctrl+M", c.match);
  AddItem(tools, "Optimise", "Ctrl+T", c.optimise);

  QMenu* help = bar->addMenu("&Help");
  AddItem(help, "Keys", "F1", c.keys);
  AddItem(help, "About Kalvex", "", [&dialogs, version] {
    dialogs.Message("Kalvex " + version + "\r\n\r\nA Smith chart for designing and analysing impedance-matching networks.",
                    "About Kalvex");
  });
  return bar;
}

}  // namespace kalvex
