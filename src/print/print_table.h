#pragma once

#include <string>

#include "model/session.h"
#include "platform/canvas.h"
#include "platform/dialogs.h"
#include "platform/pages.h"

namespace kalvex {

// The printed table's page: twips of the printable area.
inline constexpr PageSize kTablePaper{11520, 15120};

// The question asked before printing more than 40 points, or "" for fewer.
std::string TableCautionText(int points);

// The pages of the printed table on `canvas` (kTablePaper): the bold title,
// the heading block on every page, one line per point the last sweep filled
// (41 on the first page, 44 on each later one, a new page begun right after
// the last line of a full page), and the footer with `dateTime`.
void DrawTablePages(const Session& session, Canvas& canvas, const std::string& dateTime);

// "To printer": the print dialog, the caution above 40 points, then the
// table. A cancelled dialog or a printer error shows "Printer Error" with the
// reason.
void PrintTable(const Session& session, Dialogs& dialogs);

}  // namespace kalvex
