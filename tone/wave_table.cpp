#include "tone/wave_table.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int Half = ToneWaveTableSize / 2;
constexpr int Quarter = ToneWaveTableSize / 4;

/// 2 pi / 32768, and a peak whose mean square reads as 0 dB.
constexpr double SineAngleStep = 0.00019174759848570515;
constexpr double SinePeak = 131070.8844;
constexpr int SquarePeak = 92682;
/// The rise from one entry to the next that reaches 165794 after a quarter cycle.
constexpr double TriangularSlope = 20.238549279785158;
constexpr double SawToothSlope = TriangularSlope / 2;

/// By the sine of a sum, from 384 sines and as many cosines instead of 32768 sines: no entry but 0 is so
/// close to a whole number that the last bits of a double would count.
ToneWaveTable MakeSine() {
    constexpr int Fine = 128;
    std::array<double, Fine> sines, cosines;
    for (int i = 0; i < Fine; ++i) {
        sines[static_cast<std::size_t>(i)] = std::sin(i * SineAngleStep) * SinePeak;
        cosines[static_cast<std::size_t>(i)] = std::cos(i * SineAngleStep) * SinePeak;
    }
    ToneWaveTable table;
    for (int start = 0; start < ToneWaveTableSize; start += Fine) {
        const double sine = std::sin(start * SineAngleStep), cosine = std::cos(start * SineAngleStep);
        for (std::size_t i = 0; i < Fine; ++i)
            table[static_cast<std::size_t>(start) + i] =
                static_cast<int>(sine * cosines[i] + cosine * sines[i]);
    }
    return table;
}

ToneWaveTable MakeSquare() {
    ToneWaveTable table;
    std::fill(table.begin(), table.begin() + Half, SquarePeak);
    std::fill(table.begin() + Half, table.end(), -SquarePeak);
    return table;
}

ToneWaveTable MakeTriangular() {
    ToneWaveTable table;
    for (int i = 0; i < Half; ++i) {
        const int height = i < Quarter ? i : Half - i;
        table[static_cast<std::size_t>(i)] = static_cast<int>(height * TriangularSlope);
        table[static_cast<std::size_t>(Half + i)] = -table[static_cast<std::size_t>(i)];
    }
    return table;
}

ToneWaveTable MakeSawTooth() {
    ToneWaveTable table;
    for (int i = 0; i <= Half; ++i)
        table[static_cast<std::size_t>(i)] = static_cast<int>(i * SawToothSlope);
    for (int i = 1; i < Half; ++i)
        table[static_cast<std::size_t>(Half + i)] = -table[static_cast<std::size_t>(Half - i)];
    return table;
}

} // namespace

const ToneWaveTable& GetSineTable() {
    static const ToneWaveTable table = MakeSine();
    return table;
}

const ToneWaveTable& GetSquareTable() {
    static const ToneWaveTable table = MakeSquare();
    return table;
}

const ToneWaveTable& GetTriangularTable() {
    static const ToneWaveTable table = MakeTriangular();
    return table;
}

const ToneWaveTable& GetSawToothTable() {
    static const ToneWaveTable table = MakeSawTooth();
    return table;
}

const ToneWaveTable& GetSilentTable() {
    static const ToneWaveTable table{};
    return table;
}
