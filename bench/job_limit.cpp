// The least that a job of bench/peers takes on this machine: a process that starts, reads the same files,
// writes as many bytes, and computes no more than every way to do the job has to.
//
// usage: job_limit BYTES TABLE_READS CYCLES [FILE...]      writes out.wav

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int BlockFrames = 8192; // as the render job passes them on, 2 bytes each
std::array<char, 2 * BlockFrames> bytes;

void ReadFile(const char* path) {
    const int file = open(path, O_RDONLY);
    while (read(file, bytes.data(), bytes.size()) > 0) {
    }
    close(file);
}

void WriteFile(const char* path, double count) {
    const int file = open(path, O_WRONLY | O_CREAT | O_TRUNC, 0666);
    for (; count > 0; count -= bytes.size())
        if (write(file, bytes.data(), bytes.size()) < 0)
            std::exit(1);
    close(file);
}

/// What the compiler may neither foresee nor leave out.
template <class Values>
void Touch(Values& values) {
    asm volatile("" : : "r"(&values) : "memory");
}

/// One by one, as a sine of 1 kHz does.
void ReadTable(double count) {
    constexpr unsigned int Step = 97'391'549; // of 2^32 to a cycle, at 44100 Hz
    static std::array<int, 32768> table;
    static std::array<int, BlockFrames> samples;
    Touch(table);
    for (unsigned int phase = 0; count > 0; count -= BlockFrames) {
        for (int& sample : samples) {
            sample = table[phase >> 17];
            phase += Step;
        }
        Touch(samples);
    }
}

void SpendCycles(double count) {
    unsigned int chain = 1;
    Touch(chain);
    for (; count > 0; count -= 8)
        for (int i = 0; i < 4; ++i)
            chain += chain >> 1; // a shift and a sum, of which each waits for the last
    Touch(chain);
}

} // namespace

int main(int count, char** arguments) {
    if (count < 4)
        return 1;
    for (int i = 4; i < count; ++i)
        ReadFile(arguments[i]);
    ReadTable(std::atof(arguments[2]));
    SpendCycles(std::atof(arguments[3]));
    WriteFile("out.wav", std::atof(arguments[1]));
}
