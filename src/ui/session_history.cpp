#include "ui/session_history.h"

#include <QUndoCommand>

#include "ui/band_window.h"

namespace kalvex {
namespace {

SessionHistory* instance = nullptr;

// One step: the exact states before and after it, and the session's file name
// on both sides when the step read a file.
class StateStep : public QUndoCommand {
 public:
  struct Names {
    std::string before, after;
  };

  StateStep(SessionHistory& history, NetworkState before, NetworkState after, const QString& label,
            QString run, std::optional<Names> names)
      : QUndoCommand(label), history_(history), before_(std::move(before)), after_(std::move(after)),
        run_(std::move(run)), names_(std::move(names)) {}

  int id() const override { return run_.isEmpty() ? -1 : 1; }
  bool mergeWith(const QUndoCommand* other) override {
    const auto* next = static_cast<const StateStep*>(other);
    if (next->run_ != run_) return false;
    after_ = next->after_;
    setText(next->text());
    return true;
  }
  void undo() override { history_.Restore(before_, Name(&Names::before)); }
  // The first redo is the push: the command has done it already.
  void redo() override {
    if (pushed_) history_.Restore(after_, Name(&Names::after));
    pushed_ = true;
  }

 private:
  std::optional<std::string> Name(std::string Names::*side) const {
    if (!names_) return std::nullopt;
    return (*names_).*side;
  }

  SessionHistory& history_;
  NetworkState before_;
  NetworkState after_;
  QString run_;
  std::optional<Names> names_;
  bool pushed_ = false;
};

}  // namespace

SessionHistory::SessionHistory(Session& session) : session_(session), last_(NetworkStateOf(session)) {
  instance = this;
}

SessionHistory::~SessionHistory() {
  if (instance == this) instance = nullptr;
}

SessionHistory* SessionHistory::Instance() { return instance; }

void SessionHistory::Record(const QString& label, const QString& run) { Push(label, run, std::nullopt); }

void SessionHistory::RecordFileRead(const QString& label, const std::string& nameBefore) {
  Push(label, {}, nameBefore);
}

void SessionHistory::Push(const QString& label, const QString& run, std::optional<std::string> nameBefore) {
  NetworkState now = NetworkStateOf(session_);
  if (now == last_) return;
  NetworkState before = std::move(last_);
  last_ = now;
  std::optional<StateStep::Names> names;
  if (nameBefore) names = StateStep::Names{*nameBefore, session_.FileName};
  stack_.push(new StateStep(*this, std::move(before), std::move(now), label, run, std::move(names)));
}

void SessionHistory::Settle() { last_ = NetworkStateOf(session_); }

void SessionHistory::SetPage(Page* page) { page_ = page; }

void SessionHistory::Undo() {
  if (page_) page_->FinishPendingEdit();
  stack_.undo();
}

void SessionHistory::Redo() {
  if (page_) page_->FinishPendingEdit();
  stack_.redo();
}

void SessionHistory::Restore(const NetworkState& state, const std::optional<std::string>& fileName) {
  RestoreNetworkState(session_, state);
  if (fileName) session_.FileName = *fileName;
  last_ = state;
  if (page_) page_->Reload();
  BandWindow::RefreshOpen();
}

void RecordStep(const QString& label, const QString& run) {
  if (SessionHistory* history = SessionHistory::Instance()) history->Record(label, run);
}

}  // namespace kalvex
