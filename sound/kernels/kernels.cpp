#include "sound/kernels/kernels.h"

namespace baseline {
extern const LKernels kernels;
}
#ifdef SONVIRE_HAS_AVX2
namespace avx2 {
extern const LKernels kernels;
}
#endif

std::vector<const LKernels*> GetUsableKernels() {
    std::vector<const LKernels*> usable{&baseline::kernels};
#ifdef SONVIRE_HAS_AVX2
    if (__builtin_cpu_supports("avx2"))
        usable.push_back(&avx2::kernels);
#endif
    return usable;
}

const LKernels& Kernels() {
    static const LKernels& fastest = *GetUsableKernels().back();
    return fastest;
}
