#include "model/vector_state.h"

namespace kalvex {

#if defined(__x86_64__) || defined(__i386__)

void ClearUpperVectorState() {
  static const bool hasAvx = (__builtin_cpu_init(), __builtin_cpu_supports("avx"));
  // The instruction is written out rather than left to the compiler: this
  // file is built for processors without AVX, which only run it when they
  // have it.
  if (hasAvx) asm volatile("vzeroupper");
}

#else

void ClearUpperVectorState() {}

#endif

}  // namespace kalvex
