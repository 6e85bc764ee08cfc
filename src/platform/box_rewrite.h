#pragma once

#include <functional>
#include <string>

namespace kalvex {

// Writes a value that a limit reset into a page's box (numbered as the
// routine taking it says), before the message about it is shown: the page
// then shows the value the message names.
using BoxRewrite = std::function<void(int box, const std::string& text)>;

}  // namespace kalvex
