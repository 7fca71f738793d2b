#pragma once

#include "support/run_program.h"

#include <csignal>
#include <cstdint>
#include <map>
#include <optional>
#include <vector>

/// A sound server of this process's own, in a folder of its own, without any hardware. While it is there,
/// this process and the programs that it starts know no other, no JACK server and no sound card. One at a
/// time.
class SoundServer {
public:
    SoundServer();
    ~SoundServer();

    /// False where the machine has no server to start, or it doesn't come up.
    bool Start();
    /// PipeWire instead, with what stands in for the sound server. It takes sound at 48000 frames per second.
    bool StartPipeWire();
    /// A JACK server instead, which has no outputs of its own.
    bool StartJack(int rate);
    /// Ends it without a word to its clients.
    void Kill();
    /// To stop it, or to let it go on.
    void Send(int signal) const { kill(processes.front(), signal); }

    /// Adds an output that takes frames of this format as they are. It is shown as "Output NAME", or by
    /// another name.
    bool AddOutput(const std::string& name, int rate, int channels, const std::string& shown = "",
                   const std::string& format = "s16le");
    void RemoveOutput(const std::string& name);
    /// Runs a command of the server's own control program; returns what it prints.
    std::string Control(const std::string& command);

    std::string Path(const std::string& file) const { return folder / file; }

private:
    void Set(const char* variable, const std::string& value);
    void Launch(const std::string& command);
    bool ComesUp(const std::function<bool()>& answers);

    const TempDir folder;
    std::map<std::string, std::string> modules;                    ///< of the outputs, by name
    std::map<std::string, std::optional<std::string>> environment; ///< as it was before
    std::vector<pid_t> processes;
    int endSignal = SIGKILL;
};

/// Records what reaches an output, from when it is made until `Finish`.
class Recording {
public:
    /// `format` is "s16le" or "float32le", whose samples come out in 32 bits.
    Recording(const SoundServer& server, const std::string& output, int rate, int channels,
              const std::string& format = "s16le");
    ~Recording();
    Recording(const Recording&) = delete;
    Recording& operator=(const Recording&) = delete;

    /// Waits until all that has been played so far is recorded; returns every sample that is not 0: a server
    /// under load is late at times and plays silence then, but nothing may be lost for it.
    std::vector<int> Finish();

private:
    void WaitForFrames(std::uintmax_t more) const;

    std::string file;
    int rate, channels;
    bool isFloat;
    pid_t process = -1;
};

/// The 16-bit samples that these bytes hold, but for those that are 0.
std::vector<int> SamplesOf(const std::string& bytes);
/// The same for floats, in 32 bits.
std::vector<int> FloatSamplesOf(const std::string& bytes);

/// Waits until the condition holds; false when that takes so long that something hangs.
bool WaitFor(const std::function<bool()>& holds);
