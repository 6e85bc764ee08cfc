#pragma once

#include <QObject>
#include <QPointer>
#include <QUndoStack>
#include <optional>
#include <string>

#include "model/network_state.h"
#include "model/session.h"
#include "ui/page.h"

namespace kalvex {

// Undo and redo of the network and its operating point, in steps named for
// the command that made them ("Accept stage 3 (series inductor)", "Tune
// stage 2"). A command records its step once it has finished: what it leaves
// half done (a part picked and not yet accepted) is never a state of the
// history, and a command that changed nothing (saving, leaving a page) makes
// no step. What a page's opening writes into the session (the Design page's
// missing values, the calculation's frequency in load-data mode) is taken in
// without a step, so the first state the history knows is the session the
// program started with. Undo and redo put the exact states back, show them on
// the page on screen and in the band window, and are not steps themselves.
// The history lasts as long as the program.
class SessionHistory : public QObject {
  Q_OBJECT

 public:
  explicit SessionHistory(Session& session);
  ~SessionHistory() override;

  // The program's history, or nullptr where none was made (a test of a page).
  static SessionHistory* Instance();

  QUndoStack& Stack() { return stack_; }

  // Records a step named `label` when the network state differs from the last
  // one recorded. Steps in a row of the same non-empty `run` (the clicks of
  // one step button) are one step, named by the last of them.
  void Record(const QString& label, const QString& run = {});
  // The same for a command that read a file and named the session after it:
  // undone, the session takes back the name it had.
  void RecordFileRead(const QString& label, const std::string& nameBefore);

  // Takes the session as it stands as the state the next step starts from.
  void Settle();

  // The page on screen: it finishes its pending edit before an undo or redo
  // and shows the session again after it.
  void SetPage(Page* page);

  void Undo();
  void Redo();

  // Puts `state` back (and the file name, when given) and shows it.
  void Restore(const NetworkState& state, const std::optional<std::string>& fileName);

 private:
  void Push(const QString& label, const QString& run, std::optional<std::string> nameBefore);

  Session& session_;
  NetworkState last_;
  QUndoStack stack_;
  QPointer<Page> page_;
};

// Records a step in the program's history, when there is one.
void RecordStep(const QString& label, const QString& run = {});

}  // namespace kalvex
