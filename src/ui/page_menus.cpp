#include "ui/page_menus.h"

#include "ui/keys.h"
#include "ui/session_history.h"

namespace kalvex {
namespace {

void Undo() {
  if (SessionHistory* history = SessionHistory::Instance()) history->Stack().undo();
}
void Redo() {
  if (SessionHistory* history = SessionHistory::Instance()) history->Stack().redo();
}

// An item showing its key beside its text; the key itself is bound on the
// page, so the menu only shows it.
void AddItem(QMenu* menu, const QString& text, const QString& keys, const std::function<void()>& action) {
  QAction* item = menu->addAction(keys.isEmpty() ? text : text + "\t" + keys);
  item->setEnabled(static_cast<bool>(action));
  if (action) QObject::connect(item, &QAction::triggered, menu, action);
}

}  // namespace

std::vector<Key> UndoKeys() {
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
  AddItem(file, "Write SPICE deck", "Ctrl+Shift+E", c.writeSpice);
  file->addSeparator();
  AddItem(file, "Export image", "Ctrl+E", c.exportImage);
  AddItem(file, "Print", "Ctrl+P", c.print);
  file->addSeparator();
  AddItem(file, "Exit", "", c.exit);

  QMenu* edit = bar->addMenu("&Edit");
  SessionHistory* history = c.undoable ? SessionHistory::Instance() : nullptr;
  for (const bool undo : {true, false}) {
    QAction* item = history == nullptr ? edit->addAction(undo ? "Undo" : "Redo")
                    : undo ? history->Stack().createUndoAction(edit) : history->Stack().createRedoAction(edit);
    item->setShortcut(undo ? QKeySequence(Qt::CTRL | Qt::Key_Z) : QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z));
    item->setShortcutContext(Qt::WidgetShortcut);  // shown only: the page binds the keys
    item->setEnabled(history != nullptr && item->isEnabled());
    edit->addAction(item);
  }
  AddItem(edit, "Setup", "Ctrl+,", c.setup);

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
