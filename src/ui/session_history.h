#pragma once

#include <QObject>
#include <QPointer>
#include <QUndoStack>
#include <functional>

#include "model/network_state.h"
#include "model/session.h"
#include "ui/page.h"

namespace kalvex {

// Undo and redo of every change to the network and its operating point. After
// each click and each key the network state is compared with the last one
// recorded; a change becomes one step on the undo stack, and changes from the
// same control in a row (a run of clicks on one step button, the keys typed
// into one box) merge into one. An undo or redo restores the state and draws
// the page again. The history lasts as long as the program.
class SessionHistory : public QObject {
  Q_OBJECT

 public:
  explicit SessionHistory(Session& session);
  ~SessionHistory() override;

  // The program's history, or nullptr where none was made (a test of a page).
  static SessionHistory* Instance();

  QUndoStack& Stack() { return stack_; }

  // Records a step when the state differs from the last one recorded.
  void Checkpoint(QObject* source, const QString& label);

  // The page on screen, which an undo or redo draws again (Page::Reload).
  void SetPage(class Page* page);

  // Restores `state` (an undo or redo) and draws the page again.
  void Restore(const NetworkState& state);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Session& session_;
  NetworkState last_;
  QUndoStack stack_;
  QPointer<Page> page_;
};

}  // namespace kalvex
