#pragma once

#include <QString>
#include <QWidget>
#include <cstdint>

#include "design/network_editor.h"
#include "model/session.h"
#include "platform/dialogs.h"

namespace kalvex {

// One kind of part the stage-part dialog puts into a stage: its page of the
// dialog. A new kind is one more form handed to the dialog.
class StagePartForm : public QWidget {
  Q_OBJECT

 public:
  using QWidget::QWidget;

  // The kind as the dialog's kind list names it: "Coaxial cable".
  virtual QString KindName() const = 0;
  // The kind as its undo step names it: "Cable" for "Cable in stage 2".
  virtual QString StepName() const = 0;
  // Whether a stage of `type` holds this kind, so the form opens on it.
  virtual bool Holds(int16_t type) const = 0;
  // Shows the part of `stage` when it holds this kind.
  virtual void Fill(const Session& session, int stage) = 0;
  // Puts the part as entered into `stage`, with a message for each value
  // the limits changed; false when it could not (the dialog stays open).
  virtual bool PutInto(Session& session, Dialogs& dialogs, int stage) const = 0;
};

// Writes a cable's or transformer's entered values into `stage`, within the
// limits every stage is filled by, showing a message for each value reset.
void PutFeedPart(Session& session, Dialogs& dialogs, int stage, int16_t type, const StageValues& entered);

}  // namespace kalvex
