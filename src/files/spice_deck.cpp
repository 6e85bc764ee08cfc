#include "files/spice_deck.h"

#include <charconv>
#include <cmath>
#include <filesystem>
#include <numbers>
#include <vector>

#include "files/safe_write.h"
#include "files/text_file.h"
#include "model/feed_parts.h"
#include "model/format.h"

namespace kalvex {
namespace {

class Deck {
 public:
  explicit Deck(double frequency) : omega_(2 * std::numbers::pi * frequency) {}

  // SPICE reads "1M" as a thousandth: numbers go out in exponent form only. A
  // number that is not finite would make the deck unrunnable: the first one
  // is kept as the problem, naming the part of the network being written.
  std::string Num(double value) {
    if (!std::isfinite(value) && problem_.empty()) {
      problem_ = writing_ + " gives a number too large or too small for a SPICE deck: no deck was written.";
    }
    char buffer[32];
    return std::string(buffer, std::to_chars(buffer, buffer + sizeof buffer, value,
                                             std::chars_format::general, 12)
                                   .ptr);
  }
  // What the lines that follow come from, for the problem's message.
  void Writing(std::string what) { writing_ = std::move(what); }

  // A line of the program's own; every text taken from outside goes through Comment.
  void Line(const std::string& line) { text_ += line + "\n"; }
  void Comment(const std::string& line) { Line("* " + PrintableText(line)); }
  std::string NewNode() {
    nodes_.push_back("n" + std::to_string(nodes_.size() + 1));
    return nodes_.back();
  }

  // A capacitor or an inductor with its loss resistor |X| / Q at the working
  // frequency, from `a` to `b`; a Q of 0 is an ideal part.
  void Part(const std::string& name, bool capacitor, double value, double q,
            const std::string& a, const std::string& b) {
    const double x = capacitor ? 1 / (omega_ * value) : omega_ * value;
    const std::string middle = q > 0 ? NewNode() : b;
    const std::string letter = capacitor ? "C" : "L";
    Line(letter + name + " " + a + " " + middle + " " + Num(value));
    if (q > 0) Line("R" + letter + name + " " + middle + " " + b + " " + Num(std::fabs(x / q)));
  }

  // A lossless line of `degrees` at `reference` Hz: its delay gives that length there.
  void Transmission(const std::string& name, const std::string& a1, const std::string& a2,
                    const std::string& b1, const std::string& b2, double degrees,
                    double reference, double z0) {
    Line("T" + name + " " + a1 + " " + a2 + " " + b1 + " " + b2 + " Z0=" + Num(z0) +
         " TD=" + Num(degrees / 360 / reference));
  }

  const std::vector<std::string>& Nodes() const { return nodes_; }
  const std::string& Text() const { return text_; }
  const std::string& Problem() const { return problem_; }
  double Omega() const { return omega_; }

 private:
  double omega_;
  std::string writing_;
  std::string problem_;
  std::vector<std::string> nodes_;
  std::string text_;
};

// The cable from node `in`, exact at the working frequency. ngspice has no line
// element that runs this in an AC analysis: LTRA refuses a line with both L
// and G ("nonzero G not supported"), and TXL's AC analysis gives the line's
// impedance whatever its load. A line of real impedance Z0 whose loss is
// split evenly between R and G is, at one frequency, a lossless line of the
// same delay cascaded with a resistive T pad of image impedance Z0 and the
// line's loss (the two commute). So the deck writes that pad and a lossless T;
// the per-metre constants go along as a comment, for a model of one's own.
std::string CableSection(Deck& deck, const std::string& name, const CableSlots& cable,
                         double frequency, const std::string& in) {
  const LinePerMetre line = CablePerMetre(cable, frequency);
  deck.Comment("Per metre at the working frequency: R=" + deck.Num(line.R) + " L=" + deck.Num(line.L) +
               " G=" + deck.Num(line.G) + " C=" + deck.Num(line.C) + "; matched loss " +
               deck.Num(CableMatchedLossDb(cable, frequency)) + " dB.");
  const double z0 = cable.characteristicZ;
  if (z0 <= 0 || cable.velocityFactor <= 0) return in;  // passed over, as in the calculation
  const double nepers = line.R / z0 * cable.lengthMetres;
  std::string node = in;
  if (nepers != 0) {
    const std::string middle = deck.NewNode();
    const std::string out = deck.NewNode();
    const double arm = z0 * std::tanh(nepers / 2);
    deck.Line("RPA" + name + " " + node + " " + middle + " " + deck.Num(arm));
    deck.Line("RPS" + name + " " + middle + " 0 " + deck.Num(z0 / std::sinh(nepers)));
    deck.Line("RPB" + name + " " + middle + " " + out + " " + deck.Num(arm));
    node = out;
  }
  const std::string out = deck.NewNode();
  deck.Line("T" + name + " " + node + " 0 " + out + " 0 Z0=" + deck.Num(z0) +
            " TD=" + deck.Num(cable.lengthMetres * line.L / z0));
  return out;
}

// The ideal N:1 transformer as a voltage-controlled voltage source on the
// generator side and a current-controlled current source on the load side
// (turns ratio sqrt N), then the magnetising inductance across the generator
// side and the leakage inductance in series with it.
std::string TransformerSection(Deck& deck, const std::string& name,
                               const TransformerSlots& transformer, const std::string& in) {
  if (transformer.ratio <= 0) return in;  // passed over, as in the calculation
  const std::string turns = deck.Num(1 / std::sqrt(transformer.ratio));
  const std::string winding = deck.NewNode();
  const std::string sense = deck.NewNode();
  deck.Line("EX" + name + " " + winding + " " + sense + " " + in + " 0 " + turns);
  deck.Line("VX" + name + " " + sense + " 0 0");
  deck.Line("FX" + name + " 0 " + in + " VX" + name + " " + turns);
  if (transformer.magnetisingH > 0) {
    deck.Line("LM" + name + " " + winding + " 0 " + deck.Num(transformer.magnetisingH));
  }
  if (transformer.leakageH <= 0) return winding;
  const std::string out = deck.NewNode();
  deck.Line("LL" + name + " " + winding + " " + out + " " + deck.Num(transformer.leakageH));
  return out;
}

// One stage from node `in`; returns the node it leaves the signal on.
std::string Stage(Deck& deck, int s, int16_t type, const std::array<double, kSlotCount>& v,
                  double frequency, const std::string& in) {
  const std::string name = std::to_string(s);
  deck.Writing("Stage " + name + " (" + PartName(type) + ")");
  deck.Comment("Stage " + name + ": " + PartName(type));
  // A line or stub whose length is given without a reference frequency keeps
  // that length at the working frequency.
  const double reference = v[2] > 0 ? v[2] : frequency;
  switch (type) {
    case SeriesCapacitor: case SeriesInductor: {
      const std::string out = deck.NewNode();
      deck.Part(name, type == SeriesCapacitor, v[1], v[2], in, out);
      return out;
    }
    case ShuntCapacitor: case ShuntInductor:
      deck.Part(name, type == ShuntCapacitor, v[1], v[2], in, "0");
      return in;
    case SeriesLine: {
      const std::string out = deck.NewNode();
      deck.Transmission(name, in, "0", out, "0", v[1], reference, v[3]);
      return out;
    }
    case SeriesShortedStub: case SeriesOpenStub: {
      // The stub's input stands in the line, between `in` and `out`, floating.
      const std::string out = deck.NewNode();
      const std::string end = deck.NewNode();
      deck.Transmission(name, in, out, end, type == SeriesShortedStub ? end : deck.NewNode(),
                        v[1], reference, v[3]);
      return out;
    }
    case ShuntShortedStub: case ShuntOpenStub:
      deck.Transmission(name, in, "0", type == ShuntShortedStub ? "0" : deck.NewNode(), "0", v[1],
                        reference, v[3]);
      return in;
    case ShuntSeriesLC: {
      const std::string middle = deck.NewNode();
      deck.Part(name, false, v[1], v[2], in, middle);
      deck.Part(name, true, v[3], v[4], middle, "0");
      return in;
    }
    case SeriesParallelLC: {
      const std::string out = deck.NewNode();
      deck.Part(name, false, v[1], v[2], in, out);
      deck.Part(name, true, v[3], v[4], in, out);
      return out;
    }
    case SeriesResistor: {
      const std::string out = deck.NewNode();
      deck.Line("R" + name + " " + in + " " + out + " " + deck.Num(v[1]));
      return out;
    }
    case ShuntResistor:
      deck.Line("R" + name + " " + in + " 0 " + deck.Num(v[1]));
      return in;
    case CoaxialCable: return CableSection(deck, name, CableOf(v), frequency, in);
    case Transformer: return TransformerSection(deck, name, TransformerOf(v), in);
    default: return in;
  }
}

}  // namespace

SpiceDeck MakeSpiceDeck(const Session& session) {
  // A measured block is a table of S parameters over frequency; a deck of
  // lumped parts and lines has nothing that holds it at every frequency of
  // the .ac sweep, and a part fitted at one frequency would be wrong at the
  // others.
  for (int s = 1; s <= kLastStage; ++s) {
    if (session.ElementType[s] != TwoPort) continue;
    return {"", "stage " + std::to_string(s) + " is a two-port block (" +
                    PrintableText(std::filesystem::path(session.TwoPortBlocks[s].file).filename().string()) +
                    "), measured data that a SPICE deck cannot hold"};
  }
  const double f = session.Frequency;
  Deck deck(f);
  deck.Writing("The working frequency");
  const std::string name = session.FileName.empty() ? "(not saved)" : PrintableText(session.FileName);
  deck.Line("Kalvex network " + name + " at " + deck.Num(f) + " Hz");
  deck.Comment("Written by Kalvex " + session.Version + ". Working frequency " + deck.Num(f) + " Hz.");
  deck.Comment("I1 drives the generator end with 1 A, so V(in) is the input impedance in ohms.");

  const double r = session.Value[0][1];
  const double x = session.Value[0][2];
  deck.Writing("The load");
  deck.Comment("Load " + deck.Num(r) + (x < 0 ? " - j" : " + j") + deck.Num(std::fabs(x)) +
               " ohms: its resistance, and the part with its reactance at the working frequency.");
  std::string node = deck.NewNode();
  if (x == 0) {
    deck.Line("RLOAD " + node + " 0 " + deck.Num(r));
  } else {
    const std::string middle = deck.NewNode();
    deck.Line("RLOAD " + node + " " + middle + " " + deck.Num(r));
    deck.Line(x > 0 ? "LLOAD " + middle + " 0 " + deck.Num(x / deck.Omega())
                    : "CLOAD " + middle + " 0 " + deck.Num(1 / (deck.Omega() * -x)));
  }
  for (int s = 1; s <= kLastStage; ++s) {
    const int16_t type = session.ElementType[s];
    if (IsPart(type)) {
      node = Stage(deck, s, type, session.Value[s], f, node);
    }
  }

  deck.Writing("The sweep settings");
  const int points = std::max<int>(session.SweepPoints, 1);
  const std::string sweep = ".ac lin " + std::to_string(points) + " " +
                            deck.Num(session.SweepStart) + " " + deck.Num(session.SweepStop);
  if (!deck.Problem().empty()) return {"", deck.Problem()};

  std::string text = deck.Text();
  text += "I1 0 in AC 1\n";
  text += "VIN in " + node + " 0\n";
  text += "* Every node is tied to ground by 1e12 ohms, so that none floats for the DC\n"
          "* operating point; at these frequencies they change nothing.\n";
  for (const std::string& n : deck.Nodes()) text += "RDC" + n + " " + n + " 0 1e12\n";
  text += sweep + "\n";
  text += ".print ac vr(in) vi(in)\n";
  text += ".end\n";
  return {text, ""};
}

bool WriteSpiceDeck(const Session& session, Dialogs& dialogs) {
  const std::string name = WithFileType(
      dialogs.ChooseSaveFile(kSpiceDeckTitle, kSpiceDeckFilter, session.FileName), ".cir");
  if (name.empty()) return false;
  const SpiceDeck deck = MakeSpiceDeck(session);
  const std::string failure =
      deck.problem.empty() ? WriteFileSafely(name, deck.text) : deck.problem;
  if (failure.empty()) return true;
  dialogs.Message(failure);
  return false;
}

}  // namespace kalvex
