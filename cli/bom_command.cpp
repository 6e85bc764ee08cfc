#include <filesystem>

#include "cli.h"
#include "cli_options.h"
#include "command_line.h"
#include "commands.h"
#include "console_dialogs.h"
#include "files/text_file.h"
#include "matching/parts_list.h"
#include "session_options.h"

namespace kalvex {
namespace {

// The cables of the catalogue shipped beside this program, so that a cable
// is listed by its name; none where it cannot be read (the cable then goes
// by its figures).
std::vector<CatalogueCable> ShippedCables() {
  std::error_code error;
  const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) return {};
  const std::filesystem::path path = CableCataloguePath(self.parent_path());
  const std::optional<std::string> text = path.empty() ? std::nullopt : ReadTextFile(path);
  return text ? ParseCableCatalogue(*text).cables : std::vector<CatalogueCable>{};
}

}  // namespace

int RunBomCommand(const Command& command, const std::vector<std::string>& words, std::ostream& out,
                  std::ostream& err) {
  std::string file;
  std::optional<std::string> output;
  CommandLine line(command);
  line.File(file).Text("-o", "OUT.csv", output);
  if (const auto stop = line.Parse(words, out, err)) return *stop;
  if (const auto stop = RefuseOverwritingInputs(output, file, std::nullopt, line, err)) return *stop;
  Session session;
  ConsoleDialogs dialogs(err);
  if (!ReadCommandNetwork(file, session, dialogs)) return kExitFailed;
  return WriteOutput(command.name, PartsListCsv(session, {}, ShippedCables()), output, out, err);
}

}  // namespace kalvex
