#include "sound/kernels/kernel_set.h"

namespace KERNEL_ISA {

extern const LKernels kernels;
const LKernels kernels = {
    .instructionSet = SONVIRE_ISA_NAME,
    .getPeak = GetPeak,
    .applyGainLine = ApplyGainLine,
    .widen = Widen,
    .narrow = Narrow,
    .pack = Pack,
    .convolve = Convolve,
    .filter = Filter,
    .addTurned = AddTurned,
    .roundSums = RoundSums,
    .pack24 = Pack24,
};

} // namespace KERNEL_ISA
