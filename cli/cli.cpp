#include "cli.h"

#include <array>

#include "commands.h"

namespace kalvex {
namespace {

constexpr std::array kCommands = {
    Command{"impedance", "impedance FILE [--freq HZ]",
            "input resistance and reactance (ohms) of a network file, at its frequency or HZ",
            RunImpedanceCommand},
    Command{"sweep",
            "sweep FILE [--start HZ] [--stop HZ] [--points N] [--load LOADFILE] [--table]\n"
            "            [--touchstone] [-o OUT]",
            "frequency sweep of a network file as the Tabulate page computes it: the sweep-data\n"
            "      file layout, or with --table the Tabulate page's heading and rows; over the\n"
            "      points of a load-data file (.RJX, or a one-port Touchstone .s1p) with --load;\n"
            "      with --touchstone the input reflection as a one-port Touchstone file; to OUT\n"
            "      or standard output",
            RunSweepCommand},
    Command{"spice", "spice FILE [-o OUT]",
            "the network of FILE as a SPICE deck for ngspice or LTspice: V(in) is the input\n"
            "      impedance, over an AC sweep of the file's sweep settings; to OUT or standard\n"
            "      output",
            RunSpiceCommand},
    Command{"render",
            "render [FILE] --page welcome|design|analysis [--grid 1..6] [--zoom N] [--aspect A]\n"
            "             [--q-arcs] [--vswr-circle] [--sweep] [--load LOADFILE] [--size WxH] -o OUT",
            "draws the welcome page, the Design page's schematic and library, or the Analysis\n"
            "      page's chart with the network's path, for FILE's network (without FILE: the\n"
            "      one Kalvex would start with), to a PNG, SVG or PDF file chosen by OUT's\n"
            "      suffix; 1200x900 pixels unless --size; the chart at grid type, zoom factor\n"
            "      (1..8) and aspect (0.5..1.5), with the Q arcs, the VSWR circle and the sweep\n"
            "      of FILE's settings, over the points of a load-data file with --load",
            nullptr},
    Command{"print",
            "print FILE [--table] [--start HZ] [--stop HZ] [--points N] [--load LOADFILE]\n"
            "            [--grid 1..6] [--zoom N] [--q-arcs] [--vswr-circle] [--sweep] -o OUT",
            "the page the printer gets: the chart page with the network's schematic (grid\n"
            "      type, zoom and overlays as for render), or with --table the tabulated sweep\n"
            "      (sweep options as for sweep), every page, to a PDF, or the first page to\n"
            "      an SVG or PNG file, chosen by OUT's suffix",
            nullptr},
};

void PrintHelp(std::ostream& out) {
  out << "kalvex-cli: Kalvex without the windows\n\n"
         "usage: kalvex-cli COMMAND [ARGUMENTS]\n\ncommands:\n";
  for (const Command& command : kCommands) {
    out << "  " << command.usage << "\n      " << command.summary << "\n";
  }
  out << "\n  --help\n      this list\n";
}

}  // namespace

int UsageError(const Command& command, const std::string& problem, std::ostream& err) {
  if (!problem.empty()) err << "kalvex-cli " << command.name << ": " << problem << "\n";
  err << "usage: kalvex-cli " << command.usage << "\n";
  return kExitUsage;
}

int RunCli(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
           const DrawingCommands& drawing) {
  if (args.empty()) {
    PrintHelp(err);
    return kExitUsage;
  }
  if (args.front() == "--help" || args.front() == "-h" || args.front() == "help") {
    PrintHelp(out);
    return kExitOk;
  }
  for (const Command& command : kCommands) {
    if (args.front() == command.name) {
      const CommandRun run = command.run != nullptr                ? command.run
                             : std::string_view(command.name) == "render" ? drawing.render
                                                                          : drawing.print;
      return run(command, {args.begin() + 1, args.end()}, out, err);
    }
  }
  err << "kalvex-cli: unknown command " << args.front() << "\n\n";
  PrintHelp(err);
  return kExitUsage;
}

}  // namespace kalvex
