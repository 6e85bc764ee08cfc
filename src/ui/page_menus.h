#pragma once

#include <QMenuBar>
#include <QWidget>
#include <functional>
#include <string>

#include "platform/dialogs.h"
#include "ui/keys.h"

namespace kalvex {

// What a page's menus reach: each is what the page's button or key does; one
// the page does not have is shown disabled.
struct PageCommands {
  std::function<void()> getNet, saveNet, getLoad, liveLoad, writeSpice, saveTwoPort, exportImage, print, exit;
  std::function<void()> setup, stagePart, twoPortBlock;
  std::function<void()> zoomIn, zoomOut, gridType, qArcs, vswrCircle, sweep, band;
  std::function<void()> match, optimise;
  std::function<void()> keys;
  bool undoable = false;  // the page takes Undo and Redo
};

// The menu bar of File, Edit, View, Tools and Help over a page; every item
// shows its key. Undo and Redo act on the program's history when there is one.
QMenuBar* BuildMenuBar(QWidget* page, Dialogs& dialogs, const std::string& version,
                       const PageCommands& commands);

// The history's keys (Ctrl+Z, Ctrl+Shift+Z and Ctrl+Y) for the key list of
// `page`. They undo and redo wherever the focus is on the page: its text boxes
// leave these keys to the history (a box's own undo stays on its menu).
std::vector<Key> HistoryKeys(QWidget* page);

}  // namespace kalvex
