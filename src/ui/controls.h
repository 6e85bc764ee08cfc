#pragma once

#include <QLineEdit>
#include <QPushButton>
#include <QString>
#include <string>

#include "model/format.h"
#include "model/trim.h"
#include "platform/colour.h"
#include "ui/page.h"

namespace kalvex {

inline QString Q(const std::string& text) { return QString::fromStdString(text); }

// A frequency as the status line and the undo steps name it: "14.2 MHz".
inline QString HzText(double hz) { return Q(Trimmed(FormatSI(hz))) + "Hz"; }

// A dialog's frame: a title and a close box, no minimise or maximise
// buttons; its font follows the page it opens over. Returns the factor its
// text grew by.
inline double DialogFrame(QWidget* dialog) {
  dialog->setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                         Qt::WindowCloseButtonHint);
  return FollowPageFont(dialog);
}

// The light green of a button whose switch is on, and of the tuning panel.
inline constexpr Colour kOnColour = RGB(238, 255, 238);

// Gives a control one of the program's background colours. A button gets a
// thin frame too, so that a white one still reads as a button.
inline void SetBackground(QWidget* control, Colour colour) {
  const QString frame = qobject_cast<QPushButton*>(control) != nullptr
                            ? " border: 1px solid rgb(128, 128, 128); padding: 1px;"
                            : "";
  control->setStyleSheet(QString("background: rgb(%1, %2, %3);%4")
                             .arg(colour & 0xFF)
                             .arg((colour >> 8) & 0xFF)
                             .arg((colour >> 16) & 0xFF)
                             .arg(frame));
}

// Writes a box as the program does: its change handler runs and re-reads it
// even when the text stays the same, so the value always matches the text.
inline void WriteBox(QLineEdit* box, const std::string& text) {
  if (box->text() == Q(text)) {
    emit box->textChanged(box->text());
  } else {
    box->setText(Q(text));
  }
}

// A number as a dialog's box shows it for editing: the 15 digits the network
// file keeps, so that applying the dialog again changes nothing.
inline QString ExactText(double value) { return QString::number(value, 'g', 15); }

// Sizes in the dialogs are given in twips, a fifteenth of a pixel.
inline int Twips(int twips) { return twips / 15; }

// A push button of `page` with its caption and ToolTip.
inline QPushButton* Button(QWidget* page, const char* caption, const char* toolTip = "") {
  auto* button = new QPushButton(caption, page);
  button->setToolTip(toolTip);
  return button;
}

}  // namespace kalvex
