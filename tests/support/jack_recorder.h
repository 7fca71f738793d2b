#pragma once

#include <cmath>
#include <dlfcn.h>
#include <vector>

/// A JACK client whose two inputs look like a card's, so that players connect to them. The library is the one
/// that cubeb has loaded.
class JackRecorder {
public:
    JackRecorder() : client(Call<void*>("jack_client_open", "recorder", 1, static_cast<int*>(nullptr))) {
        for (const char* name : {"left", "right"}) // inputs of a card
            ports.push_back(Call<void*>("jack_port_register", client, name, "32 bit float mono audio",
                                        0x1UL | 0x4UL, 0UL));
        Call<int>("jack_set_process_callback", client, &Process, this);
        Call<int>("jack_activate", client);
    }
    JackRecorder(const JackRecorder&) = delete;
    JackRecorder& operator=(const JackRecorder&) = delete;

    /// Leaves the server; returns every sample that is not 0, in 16 bits. To be called once.
    std::vector<int> Finish() {
        Call<int>("jack_client_close", client);
        return heard;
    }

private:
    template <class Result, class... Arguments>
    static Result Call(const char* function, Arguments... arguments) {
        static void* const library = dlopen("libjack.so.0", RTLD_LAZY); // with jackd, which runs
        return reinterpret_cast<Result (*)(Arguments...)>(dlsym(library, function))(arguments...);
    }
    static int Process(unsigned int frames, void* self) {
        auto& [client, ports, heard] = *static_cast<JackRecorder*>(self);
        const float* in[] = {Call<const float*>("jack_port_get_buffer", ports[0], frames),
                             Call<const float*>("jack_port_get_buffer", ports[1], frames)};
        for (unsigned int i = 0; i < 2 * frames; ++i)
            if (const float sample = in[i % 2][i / 2]; sample != 0)
                heard.push_back(static_cast<int>(std::lround(sample * 32767)));
        return 0;
    }

    void* client;
    std::vector<void*> ports;
    std::vector<int> heard;
};
