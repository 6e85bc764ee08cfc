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

// Binds each key on `page`, and F1 to the list of them.
inline void BindKeys(QWidget* page, Dialogs& dialogs, std::vector<Key> keys) {
  std::string list = "Keys of this page:\r\n";
  for (Key& key : keys) {
    list += "\r\n" + key.keys.toString(QKeySequence::NativeText).toStdString() + "\t" + key.what;
    QObject::connect(new QShortcut(key.keys, page), &QShortcut::activated, page,
                     std::move(key.action));
  }
  list += "\r\nF1\tthis list";
  QObject::connect(new QShortcut(QKeySequence(Qt::Key_F1), page), &QShortcut::activated, page,
                   [&dialogs, list] { dialogs.Message(list, "Kalvex keys"); });
}

}  // namespace kalvex
