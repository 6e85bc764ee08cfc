#pragma once

#include "model/elements.h"

namespace kalvex {

// How the network's own load, R + jX given at the working frequency, is taken
// at the other frequencies of a band. Load data is what was measured at each
// of its points whichever is chosen.
//   Fixed:  R + jX at every frequency, as the Tabulate page takes it.
//   Fitted: R in series with the inductor or capacitor whose reactance is X at
//           the working frequency, as the SPICE deck and the Bode-Fano bound
//           take it.
enum class LoadModel { Fixed, Fitted };

const char* LoadModelName(LoadModel model);  // "fixed", "fitted"

// The load at `frequency` of one that is `working` at `workingFrequency`.
Impedance LoadAtFrequency(Impedance working, double workingFrequency, double frequency, LoadModel model);

}  // namespace kalvex
