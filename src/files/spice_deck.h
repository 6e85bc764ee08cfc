#pragma once

#include <string>

#include "model/session.h"
#include "platform/dialogs.h"

namespace kalvex {

inline constexpr const char* kSpiceDeckTitle = "Write LTspice deck";
inline constexpr const char* kSpiceDeckFilter = "SPICE decks (*.cir)|*.cir";

// The network as a SPICE deck that ngspice and LTspice both run: the load as
// its resistance and the inductor or capacitor with its reactance at the
// working frequency, each part with its Q loss as a series resistor |X| / Q at
// the working frequency, lines and stubs as lossless T elements, a cable as a
// lossless T with a resistive pad of its loss at the working frequency, a
// transformer as controlled sources with its winding inductances, the
// generator end driven by "I1 0 in AC 1" so that V(in) is the input impedance,
// and an AC sweep over the sweep settings. Numbers are plain exponent forms;
// names taken from the session go into comments only, as one line each.
// Every line is composed here: nothing read from a file becomes a command.
// A value whose number in the deck would not be finite (a 1E+308 H inductor)
// gives no text and a problem naming the stage (or the load, the working
// frequency or the sweep settings). A two-port block, measured data over
// frequency, gives no text and a problem naming its stage and file.
struct SpiceDeck {
  std::string text;
  std::string problem;
};
SpiceDeck MakeSpiceDeck(const Session& session);

// "Write LTspice": the save chooser, then the deck under the chosen name with
// its type made ".cir"; a deck that cannot be made, or a failure to write,
// is said ("cannot write …"). Returns true when written.
bool WriteSpiceDeck(const Session& session, Dialogs& dialogs);

}  // namespace kalvex
