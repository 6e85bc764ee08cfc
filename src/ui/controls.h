#pragma once

#include <QPushButton>
#include <QString>
#include <string>

namespace kalvex {

inline QString Q(const std::string& text) { return QString::fromStdString(text); }

// A push button of `page` with its caption and ToolTip.
inline QPushButton* Button(QWidget* page, const char* caption, const char* toolTip = "") {
  auto* button = new QPushButton(caption, page);
  button->setToolTip(toolTip);
  return button;
}

}  // namespace kalvex
