#pragma once

#include <cmath>
#include <dlfcn.h>
#include <vector>

/// A JACK client with two inputs that look like a card's, so that players connect to them. The library is the
/// one that cubeb has loaded.
class JackRecorder {
public:
    JackRecorder() : client(Call<void*>("jack_client_open", "recorder", 1, static_cast<int*>(nullptr))) {
        heard.reserve(MostSamples);
        for (const char* name : {"left", "right"}) // inputs of a card
            ports.push_back(Call<void*>("jack_port_register", client, name, "32 bit float mono audio",
                                        0x1UL | 0x4UL, 0UL));
        Call<int>("jack_set_process_callback", client, &Process, this);
        Call<int>("jack_activate", client);
    }
    ~JackRecorder() { Finish(); }
    JackRecorder(const JackRecorder&) = delete;
    JackRecorder& operator=(const JackRecorder&) = delete;

    /// Every sample that is not 0, in 16 bits.
    std::vector<int> Finish() {
        if (client)
            Call<int>("jack_client_close", client);
        client = nullptr;
        return heard;
    }

private:
    static constexpr std::size_t MostSamples = 1000000;

    template <class Result, class... Arguments>
    static Result Call(const char* function, Arguments... arguments) {
        return reinterpret_cast<Result (*)(Arguments...)>(dlsym(RTLD_DEFAULT, function))(arguments...);
    }
    static int Process(unsigned int frames, void* self) {
        auto& recorder = *static_cast<JackRecorder*>(self);
        std::vector<const float*> in;
        for (void* port : recorder.ports)
            in.push_back(static_cast<const float*>(Call<void*>("jack_port_get_buffer", port, frames)));
        for (unsigned int frame = 0; frame < frames; ++frame)
            for (const float* channel : in)
                if (channel[frame] != 0 && recorder.heard.size() < MostSamples)
                    recorder.heard.push_back(static_cast<int>(std::lround(channel[frame] * 32767)));
        return 0;
    }

    void* client;
    std::vector<void*> ports;
    std::vector<int> heard;
};
