#include "cli_options.h"

#include "cli.h"
#include "files/safe_write.h"

namespace kalvex {

int WriteOutput(const std::string& command, const std::string& text,
                const std::optional<std::string>& output, std::ostream& out, std::ostream& err) {
  if (!output) {
    out << text;
    return kExitOk;
  }
  if (const std::string failure = WriteFileSafely(*output, text); !failure.empty()) {
    err << "kalvex-cli " << command << ": " << failure << "\n";
    return kExitFailed;
  }
  return kExitOk;
}

}  // namespace kalvex
