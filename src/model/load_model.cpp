#include "model/load_model.h"

namespace kalvex {

const char* LoadModelName(LoadModel model) { return model == LoadModel::Fitted ? "fitted" : "fixed"; }

Impedance LoadAtFrequency(Impedance working, double workingFrequency, double frequency, LoadModel model) {
  if (model == LoadModel::Fixed || working.X == 0 || !(workingFrequency > 0) || !(frequency > 0)) return working;
  // ωL grows with the frequency, 1/ωC falls with it.
  const double scale = working.X > 0 ? frequency / workingFrequency : workingFrequency / frequency;
  return {working.R, working.X * scale};
}

}  // namespace kalvex
