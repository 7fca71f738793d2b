#include "sound/sample_format.h"

template <class Format>
void ConvertSamplesIn(int* out, const typename Format::Stored* in, int count) {
    for (int i = 0; i < count; ++i)
        out[i] = Format::In(in[i]);
}

template <class Format>
void ConvertSamplesOut(typename Format::Stored* out, const int* in, int count) {
    for (int i = 0; i < count; ++i)
        out[i] = Format::Out(in[i]);
}

template void ConvertSamplesIn<LSFU8>(int*, const LSFU8::Stored*, int);
template void ConvertSamplesIn<LSFLE16>(int*, const LSFLE16::Stored*, int);
template void ConvertSamplesOut<LSFU8>(LSFU8::Stored*, const int*, int);
template void ConvertSamplesOut<LSFLE16>(LSFLE16::Stored*, const int*, int);
template void ConvertSamplesOut<LSF16>(LSF16::Stored*, const int*, int);
