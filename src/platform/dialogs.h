#pragma once

#include <memory>
#include <string>

#include "platform/canvas.h"
#include "platform/pages.h"

namespace kalvex {

enum class MessageButtons { Ok, OkCancel, YesNo, YesNoCancel };
enum class MessageIcon { Information, Warning, Critical, Question };
enum class MessageAnswer { Ok, Cancel, Yes, No };

// The program's own title of a message box that names none.
inline constexpr const char* kProgramTitle = "Kalvex";

// A document on its way to the printer: its pages are drawn on Page() in the
// page units it was started with, NewPage() between them.
class PrintJob {
 public:
  virtual ~PrintJob() = default;
  virtual Canvas& Page() = 0;
  // Ends the document. Returns "" when it went to the printer, else what
  // went wrong.
  virtual std::string Finish() = 0;
};

// What the program needs from the user's desktop: messages, file choosers, the
// bell, a short pause and the clock. Pages and file routines take a Dialogs&,
// so tests script the answers and read back every message shown.
class Dialogs {
 public:
  virtual ~Dialogs() = default;

  // Shows a modal message and returns the button pressed. An empty title
  // stands for kProgramTitle.
  virtual MessageAnswer Message(const std::string& text, const std::string& title = "",
                                MessageButtons buttons = MessageButtons::Ok,
                                MessageIcon icon = MessageIcon::Information) = 0;

  // File choosers. `filter` is written "Kalvex files (*.SSF)|*.SSF". They
  // return the chosen path, or "" when the user cancelled.
  virtual std::string ChooseOpenFile(const std::string& title, const std::string& filter,
                                     const std::string& startName) = 0;
  virtual std::string ChooseSaveFile(const std::string& title, const std::string& filter,
                                     const std::string& startName) = 0;

  // The print dialog, then a document whose pages are `page` units across
  // and down the printable area. A cancelled dialog or a printer that cannot
  // start gives no job and the reason in `error`.
  virtual std::unique_ptr<PrintJob> StartPrint(PageSize page, std::string& error) = 0;

  virtual void Beep() = 0;

  // Why a file could not be read ("cannot read PATH: reason"), said before the
  // reader's own message. The command line prints it; the windows leave it
  // out, as each page has its own message for a file it cannot use.
  virtual void Diagnostic(const std::string& /*text*/) {}

  // Waits for `seconds` while the windows keep painting.
  virtual void Pause(double seconds) = 0;

  // The local date and time as text, for file headers and printouts.
  virtual std::string LocalDateTime() = 0;
};

}  // namespace kalvex
