#pragma once

#include <vector>

#include "model/session.h"

namespace kalvex {

// One value the optimiser moves: its stage and value slot, its range, and
// whether it is searched on a log scale (values that span decades).
struct SearchVariable {
  int stage;
  int slot;
  double low;
  double high;
  bool logarithmic;

  double ToSearch(double value) const;  // clamped into the range first
  double FromSearch(double x) const;
  double SearchLow() const { return ToSearch(low); }
  double SearchHigh() const { return ToSearch(high); }
};

// The free values of `stages`. Wide: everything the Design page accepts for
// each type. Otherwise where parts can be built: capacitors and inductors
// whose reactance at the working frequency is 0.01 to 100 times the system
// impedance (resistors likewise in ohms), line and stub impedances 20 to 150
// ohms, a cable's length half a wavelength in it either side of its present
// length; within the wide range. Line and stub impedances move only with
// `freeImpedances`.
std::vector<SearchVariable> SearchVariables(const Session& session, const std::vector<int>& stages,
                                            bool freeImpedances, bool wide);

// Where a search variable's final value stands: on an end of its range, or
// where its part hardly changes the network (a series reactance below 0.01 of
// the system impedance, a shunt one above 100 times it, a line under a degree).
bool OnBound(const SearchVariable& variable, double value);
bool NegligiblePart(const Session& session, int16_t type, int slot, double value);

}  // namespace kalvex
