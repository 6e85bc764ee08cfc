#include "ui/session_history.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>
#include <QUndoCommand>

namespace kalvex {
namespace {

SessionHistory* instance = nullptr;

// One step: the states before and after it, and the control it came from.
class StateStep : public QUndoCommand {
 public:
  StateStep(SessionHistory& history, NetworkState before, NetworkState after, QObject* source,
            const QString& label)
      : QUndoCommand(label), history_(history), before_(std::move(before)), after_(std::move(after)),
        source_(source) {}

  int id() const override { return 1; }
  bool mergeWith(const QUndoCommand* other) override {
    const auto* next = static_cast<const StateStep*>(other);
    // A control that is gone (its page was replaced) starts a new step.
    if (source_.isNull() || next->source_ != source_) return false;
    after_ = next->after_;
    return true;
  }
  void undo() override { history_.Restore(before_); }
  // The first redo is the push: the change has happened already.
  void redo() override {
    if (pushed_) history_.Restore(after_);
    pushed_ = true;
  }

 private:
  SessionHistory& history_;
  NetworkState before_;
  NetworkState after_;
  QPointer<QObject> source_;
  bool pushed_ = false;
};

QString LabelOf(const QObject* source) {
  if (const auto* button = qobject_cast<const QAbstractButton*>(source); button && !button->text().isEmpty()) {
    return button->text().remove('&');
  }
  if (qobject_cast<const QLineEdit*>(source) != nullptr) return "typing";
  return "change";
}

}  // namespace

SessionHistory::SessionHistory(Session& session) : session_(session), last_(NetworkStateOf(session)) {
  instance = this;
  qApp->installEventFilter(this);
}

SessionHistory::~SessionHistory() {
  if (instance == this) instance = nullptr;
}

SessionHistory* SessionHistory::Instance() { return instance; }

void SessionHistory::Checkpoint(QObject* source, const QString& label) {
  NetworkState now = NetworkStateOf(session_);
  if (now == last_) return;
  NetworkState before = std::move(last_);
  last_ = now;
  stack_.push(new StateStep(*this, std::move(before), std::move(now), source, label));
}

void SessionHistory::SetPage(Page* page) { page_ = page; }

void SessionHistory::Restore(const NetworkState& state) {
  RestoreNetworkState(session_, state);
  last_ = state;
  if (page_) page_->Reload();
}

bool SessionHistory::eventFilter(QObject* watched, QEvent* event) {
  const bool done = event->type() == QEvent::MouseButtonRelease ||
                    (event->type() == QEvent::KeyRelease && !static_cast<QKeyEvent*>(event)->isAutoRepeat());
  if (done && watched->isWidgetType()) {
    // After the event's handlers have run, whatever they changed is one step.
    QPointer<QObject> source(watched);
    QTimer::singleShot(0, this, [this, source] { Checkpoint(source, LabelOf(source)); });
  }
  return false;
}

}  // namespace kalvex
