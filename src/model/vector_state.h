#pragma once

namespace kalvex {

// Marks the upper halves of the vector registers as unused (vzeroupper) on a
// processor with AVX; does nothing on one without it, or off x86.
//
// Plain double arithmetic is compiled for the baseline x86-64 (SSE). While
// some earlier code has left the upper halves in use, as the window system's
// start-up does, every such instruction on a processor with AVX-512 waits for
// them and the calculation runs several times slower, until they are cleared.
// Each calculation-heavy region (the one-point and the batched calculation,
// the path, the redraw, the optimiser) and each worker thread calls this on
// entry; it costs a few cycles.
void ClearUpperVectorState();

}  // namespace kalvex
