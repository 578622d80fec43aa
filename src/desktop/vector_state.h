// Routines of the toolkit may leave the upper halves of the vector registers in use. The mathematics of the C library
// then runs at a tenth of its speed on some processors, until they are cleared.
#pragma once

namespace noldarz {

#if defined(__x86_64__)
__attribute__((target("avx"))) inline void clearUpperHalves() { __builtin_ia32_vzeroupper(); }
/// Before the logic computes, after the toolkit has painted.
inline void clearVectorState() {
  if (__builtin_cpu_supports("avx")) clearUpperHalves();
}
#else
inline void clearVectorState() {}
#endif

}  // namespace noldarz
