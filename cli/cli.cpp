#include "cli.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <exception>
#include <new>
#include <streambuf>

#include "commands.h"

namespace kalvex {
namespace {

constexpr std::array kCommands = {
    Command{"impedance", "impedance FILE [--freq HZ]",
            "input resistance and reactance (ohms) of a network file, at its frequency or HZ",
            RunImpedanceCommand, nullptr},
    Command{"sweep",
            "sweep FILE [--start HZ] [--stop HZ] [--points N] [--load LOADFILE] [--table]\n"
            "            [--touchstone] [--touchstone2] [--load-model fixed|fitted] [-o OUT]",
            "frequency sweep of a network file as the Tabulate page computes it: the sweep-data\n"
            "      file layout, or with --table the Tabulate page's heading and rows; over the\n"
            "      points of a load-data file (.RJX, or a one-port Touchstone .s1p) with --load;\n"
            "      with --touchstone the input reflection as a one-port Touchstone file, with\n"
            "      --touchstone2 the network without its load as a two-port Touchstone file\n"
            "      (port 1 the generator side, S parameters at the system impedance); to OUT\n"
            "      or standard output; --load-model fitted takes the load as R with the C or L of\n"
            "      its X at the working frequency (default fixed: R + jX at every frequency)",
            RunSweepCommand, nullptr},
    Command{"spice", "spice FILE [-o OUT]",
            "the network of FILE as a SPICE deck for ngspice or LTspice: V(in) is the input\n"
            "      impedance, over an AC sweep of the file's sweep settings; to OUT or standard\n"
            "      output",
            RunSpiceCommand, nullptr},
    Command{"match",
            "match FILE [--kinds L,PI,T,STUB,QW,MULTI] [--q Q] [--sections N] [--ripple DB]\n"
            "            [--load-model fixed|fitted] [--json] [--apply N -o OUT]",
            "every matching network for FILE's load at its frequency to the system impedance:\n"
            "      L, Pi and T networks (loaded Q --q), single stubs, quarter-wave and binomial\n"
            "      and Chebyshev transformers (--sections 2..7, --ripple in dB of mismatch loss),\n"
            "      lowest loaded Q first, each with its worst VSWR over the sweep (or 10 % either\n"
            "      side of the working frequency when the sweep does not hold it), as a table or\n"
            "      with --json as one object; --apply N writes FILE's network with solution N to\n"
            "      the network file OUT; behind a cable or transformer the load is matched as\n"
            "      seen through it, and the solutions go in after it",
            RunMatchCommand, nullptr},
    Command{"band",
            "band FILE [--start HZ] [--stop HZ] [--points N] [--load LOADFILE]\n"
            "           [--thresholds 1.5,2,3] [--load-model fixed|fitted] [--json] [-o OUT]",
            "the match over the sweep band: worst and best VSWR and return loss, the band\n"
            "      edges at each VSWR threshold with the bandwidth, and the Bode-Fano bound of\n"
            "      the load with how much of it the network reaches; the power lost in the\n"
            "      network at the working frequency and each cable's matched loss; with --json\n"
            "      one object",
            RunBandCommand, nullptr},
    Command{"optimize",
            "optimize FILE --free 1,2[,...] [--free-z0] [--start HZ] [--stop HZ] [--points N]\n"
            "            [--load LOADFILE] [--bounds practical|wide] [--load-model fixed|fitted]\n"
            "            [--json] [-o OUT]",
            "tunes the parts of the stages --free names (and with --free-z0 their line and\n"
            "      stub impedances) for the smallest worst VSWR over the band that --start,\n"
            "      --stop, --points or --load give, or at the working frequency without one;\n"
            "      prints the worst VSWR before and after and the new values, with --json as\n"
            "      one object; -o writes the optimised network file; values stay where parts can\n"
            "      be built (reactance 0.01..100 x the system impedance, lines 20..150 ohms, a\n"
            "      cable within half a wavelength of its length) unless --bounds wide; the\n"
            "      network's loss before and after",
            nullptr, "kalvex-cli-optimise"},
    Command{"snap",
            "snap FILE --stages 1,3 [--series C=E24,L=E12,R=E96] [--start HZ] [--stop HZ]\n"
            "           [--points N] [--load LOADFILE] [--retune-feed] [--json] [-o OUT]",
            "puts the parts of the stages --stages names on standard values (capacitors E24,\n"
            "      inductors E12, resistors E96 unless --series) and re-tunes the other stages\n"
            "      for the smallest worst VSWR over the band: every combination of the values\n"
            "      next below and above; prints the worst VSWR before, plainly rounded and\n"
            "      snapped, with the values, with --json as one object; -o writes the network;\n"
            "      cables and transformers stay as they are unless --retune-feed",
            nullptr, "kalvex-cli-optimise"},
    Command{"yield",
            "yield FILE [--tolerance C=5,L=5,R=1,LINE=2,N=0,3=10] [--distribution uniform|normal]\n"
            "            [--samples N] [--seed S] [--vswr 2] [--start HZ] [--stop HZ] [--points N]\n"
            "            [--load LOADFILE] [--json]",
            "how many networks built from FILE with parts within their tolerances (per cent\n"
            "      by kind or by stage; lines and cables by their length, transformers by their\n"
            "      ratio, held exact unless N is given) meet the VSWR goal over the band: a seeded\n"
            "      Monte-Carlo of N networks (10000), uniform or normal with the tolerance at\n"
            "      3 sigma; the worst VSWR nominal and at the worst corner, and each part at its\n"
            "      two ends, largest effect first; with --json one object with the 5-95 %\n"
            "      envelope over frequency",
            RunYieldCommand, nullptr},
    Command{"bom", "bom FILE [-o OUT.csv]",
            "the parts list of FILE as CSV: stage, part, value with its unit, the smallest\n"
            "      standard series that holds the value, and the default tolerance",
            RunBomCommand, nullptr},
    Command{"measure",
            "measure --port DEV [--start HZ] [--stop HZ] [--points N] [--sweeps K] [-o OUT]",
            "reads the load from a pocket vector network analyser on the serial port DEV:\n"
            "      one sweep, or the average of K, of --points (2..1000, default 101) from\n"
            "      --start to --stop (default 1M..30M), as a one-port Touchstone file for --load;\n"
            "      to OUT or standard output",
            RunMeasureCommand, nullptr},
    Command{"render",
            "render [FILE] --page welcome|design|analysis|band [--grid 1..6] [--zoom N]\n"
            "             [--aspect A] [--q-arcs] [--vswr-circle] [--sweep] [--load LOADFILE]\n"
            "             [--start HZ] [--stop HZ] [--points N] [--plot vswr|rl|gamma]\n"
            "             [--size WxH] [--screen WxH] -o OUT",
            "draws the welcome page, the Design page's schematic and library, or the Analysis\n"
            "      page's chart with the network's path, for FILE's network (without FILE: the\n"
            "      one Kalvex would start with), to a PNG, SVG or PDF file chosen by OUT's\n"
            "      suffix; 1920x1080 pixels unless --size, the page in the proportions of a\n"
            "      1920x1080 screen unless --screen; the chart at grid type, zoom factor\n"
            "      (1..8) and aspect (0.5..1.5), with the Q arcs, the VSWR circle and the sweep\n"
            "      of FILE's settings, over the points of a load-data file with --load; or the\n"
            "      band plot of VSWR, return loss or |Gamma| against frequency over the sweep",
            nullptr, "kalvex-cli-draw"},
    Command{"print",
            "print FILE [--table] [--start HZ] [--stop HZ] [--points N] [--load LOADFILE]\n"
            "            [--grid 1..6] [--zoom N] [--q-arcs] [--vswr-circle] [--sweep] -o OUT",
            "the page the printer gets: the chart page with the network's schematic (grid\n"
            "      type, zoom and overlays as for render), or with --table the tabulated sweep\n"
            "      (sweep options as for sweep), every page, to a PDF, or the first page to\n"
            "      an SVG or PNG file, chosen by OUT's suffix",
            nullptr, "kalvex-cli-draw"},
};

// Passes text on with every control character but the line break made a
// blank, so that a name or an option line echoed in a message cannot move the
// terminal's cursor, change its colours or forge a line.
class PrintableBuffer : public std::streambuf {
 public:
  explicit PrintableBuffer(std::streambuf* target) : target_(target) {}

 protected:
  int_type overflow(int_type c) override {
    if (traits_type::eq_int_type(c, traits_type::eof())) return traits_type::not_eof(c);
    return target_->sputc(Printable(traits_type::to_char_type(c)));
  }
  std::streamsize xsputn(const char* text, std::streamsize count) override {
    for (std::streamsize k = 0; k < count; ++k) {
      if (traits_type::eq_int_type(target_->sputc(Printable(text[k])), traits_type::eof())) return k;
    }
    return count;
  }
  int sync() override { return target_->pubsync(); }

 private:
  static char Printable(char c) {
    const auto code = static_cast<unsigned char>(c);
    return c != '\n' && (code < 0x20 || code == 0x7F) ? ' ' : c;
  }
  std::streambuf* target_;
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

namespace {

int RunCommand(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
               CommandFinder find) {
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
      const CommandRun run = command.run != nullptr ? command.run : find(command);
      return run(command, {args.begin() + 1, args.end()}, out, err);
    }
  }
  err << "kalvex-cli: unknown command " << args.front() << "\n\n";
  PrintHelp(err);
  return kExitUsage;
}

}  // namespace

int RunCli(const std::vector<std::string>& args, std::ostream& out, std::ostream& err,
           CommandFinder find) {
  PrintableBuffer printable(err.rdbuf());
  std::ostream messages(&printable);
  try {
    return RunCommand(args, out, messages, find);
  } catch (const std::bad_alloc&) {
    messages << "kalvex-cli: not enough memory\n";
  } catch (const std::exception& error) {
    messages << "kalvex-cli: " << error.what() << "\n";
  }
  return kExitFailed;
}

int RunCliProgram(int argc, char** argv, CommandFinder find) {
  // A reader that went away is a write error to report, not a signal to die of.
  std::signal(SIGPIPE, SIG_IGN);
  int code = RunCli({argv + 1, argv + argc}, std::cout, std::cerr, find);
  std::cout.flush();
  if (!std::cout || std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
    std::cerr << "kalvex-cli: cannot write to standard output: " << std::strerror(errno) << "\n";
    code = kExitFailed;
  }
  return code;
}

}  // namespace kalvex
