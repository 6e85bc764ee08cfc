#pragma once

#include <QKeySequence>
#include <QShortcut>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "platform/dialogs.h"

namespace kalvex {

// Keys that reach a page's commands, hidden ones included, without a control
// of their own: what a key does is exactly what its button does.
struct Key {
  QKeySequence keys;
  const char* what;  // for the list F1 shows
  std::function<void()> action;
};

// Binds each key on `page`, and F1 to the list of them: a table, so that the
// descriptions line up whatever the keys' widths. Returns the action that
// shows the list, for the Help menu.
inline std::function<void()> BindKeys(QWidget* page, Dialogs& dialogs, std::vector<Key> keys) {
  QString rows;
  auto row = [&rows](const QString& keys, const QString& what) {
    rows += "<tr><td>" + keys.toHtmlEscaped() + "</td><td>" + what.toHtmlEscaped() + "</td></tr>";
  };
  for (Key& key : keys) {
    row(key.keys.toString(QKeySequence::NativeText), key.what);
    QObject::connect(new QShortcut(key.keys, page), &QShortcut::activated, page,
                     std::move(key.action));
  }
  row("F1", "this list");
  const std::string list =
      ("<p>Keys of this page:</p><table cellspacing=\"4\">" + rows + "</table>").toStdString();
  const auto showList = [&dialogs, list] { dialogs.Message(list, "Kalvex keys"); };
  QObject::connect(new QShortcut(QKeySequence(Qt::Key_F1), page), &QShortcut::activated, page, showList);
  return showList;
}

}  // namespace kalvex
