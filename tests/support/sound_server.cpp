#include "support/sound_server.h"

#include "play/jack_guard.h"

#include <chrono>
#include <cmath>
#include <csignal>
#include <cstring>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

bool WaitFor(const std::function<bool()>& holds) {
    const auto latest = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!holds()) {
        if (std::chrono::steady_clock::now() >= latest)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

static std::uintmax_t SizeOf(const std::string& file) {
    std::error_code none;
    const std::uintmax_t size = std::filesystem::file_size(file, none);
    return none ? 0 : size;
}

SoundServer::SoundServer() {
    for (const char* folderName :
         {"XDG_RUNTIME_DIR", "PULSE_RUNTIME_PATH", "PIPEWIRE_RUNTIME_DIR", "HOME", "XDG_CONFIG_HOME"})
        Set(folderName, Path(""));
    Set("PULSE_SERVER", "unix:" + Path("native"));
    Set("PULSE_SINK", "");
    Set("JACK_DEFAULT_SERVER", "none");
    Set("AUDIODEVICE", "none"); // sndio's, which takes cards as well
    Set("ALSA_CONFIG_PATH", Path("no.conf"));
}

void SoundServer::Set(const char* variable, const std::string& value) {
    const char* before = getenv(variable);
    environment.emplace(variable, before ? std::optional<std::string>(before) : std::nullopt);
    setenv(variable, value.c_str(), 1);
}

SoundServer::~SoundServer() {
    Kill();
    if (endSignal == SIGTERM) // a client that outlives its JACK server leaves the lock between them
        RunProgram("rm -f /dev/shm/jack_sem.*_${JACK_DEFAULT_SERVER}_*");
    for (const auto& [variable, value] : environment)
        value ? setenv(variable.c_str(), value->c_str(), 1) : unsetenv(variable.c_str());
}

void SoundServer::Launch(const std::string& command) {
    const std::string number = std::to_string(processes.size());
    processes.push_back(Spawn("export DBUS_SESSION_BUS_ADDRESS=disabled:; exec " + command,
                              Path("server.out" + number), Path("server.err" + number)));
}

bool SoundServer::ComesUp(const std::function<bool()>& answers) {
    return WaitFor([&] { return waitpid(processes.front(), nullptr, WNOHANG) != 0 || answers(); }) &&
           kill(processes.front(), 0) == 0;
}

static bool AnswersPulse() {
    return RunProgram("exec pactl stat").status == 0;
}

bool SoundServer::Start() {
    Launch("pulseaudio -n --daemonize=no --exit-idle-time=-1 --disable-shm=yes -L "
           "'module-native-protocol-unix auth-anonymous=1 socket=" +
           Path("native") + "'");
    return ComesUp(AnswersPulse);
}

bool SoundServer::StartPipeWire() {
    Launch("pipewire");
    // A machine under load loses no frames: those of a sixth of a second are moved at a time.
    if (!ComesUp(
            [] { return RunProgram("exec pw-metadata -n settings 0 clock.force-quantum 8192").status == 0; }))
        return false;
    // What links streams to outputs, but leaves cards alone, by the name that it has in either release.
    Launch("sh -c 'test -e /usr/share/wireplumber/policy.conf && exec wireplumber -c policy.conf;"
           " exec wireplumber -p policy'");
    Launch("pipewire-pulse");
    return ComesUp(AnswersPulse);
}

bool SoundServer::StartJack(int rate) {
    const std::string name = "sonvire-test-" + std::to_string(getpid());
    Set("JACK_DEFAULT_SERVER", name);
    // It waits for its clients, so that a machine under load loses no frames.
    Launch("jackd --name " + name + " -r -m -S -t 20000 -d dummy -p 1024 -P 0 -C 0 -r " +
           std::to_string(rate));
    endSignal = SIGTERM; // what it shares with its clients would stay
    return ComesUp(IsJackRunning);
}

void SoundServer::Kill() {
    for (const pid_t process : processes)
        EndProcess(process, endSignal);
    processes.clear();
    modules.clear();
    std::filesystem::remove(Path("native"));
}

bool SoundServer::AddOutput(const std::string& name, int rate, int channels, const std::string& shown,
                            const std::string& format) {
    const std::string module = Control(
        "load-module module-null-sink norewinds=1 format=" + format + " sink_name=" + name +
        " rate=" + std::to_string(rate) + " channels=" + std::to_string(channels) +
        // Quoted once for the shell, once for the server, once for the property.
        " \"sink_properties='device.description=\\\"Output " + (shown.empty() ? name : shown) + "\\\"'\"");
    modules[name] = module;
    return !module.empty();
}

void SoundServer::RemoveOutput(const std::string& name) {
    Control("unload-module " + modules[name]);
    modules.erase(name);
}

std::string SoundServer::Control(const std::string& command) {
    return RunProgram("exec pactl " + command).output;
}

Recording::Recording(const SoundServer& server, const std::string& output, int framesPerSecond,
                     int channelCount, const std::string& format)
    : file(server.Path(output + ".raw")),
      rate(framesPerSecond),
      channels(channelCount),
      isFloat(format != "s16le") {
    std::filesystem::remove(file); // one before would count
    process = Spawn("exec parec --raw --format=" + format + " --latency-msec=20 -d " + output +
                        ".monitor --rate=" + std::to_string(rate) + " --channels=" + std::to_string(channels),
                    file, server.Path("record.err"));
    WaitForFrames(1);
}

Recording::~Recording() {
    if (process > 0)
        EndProcess(process, SIGKILL);
}

void Recording::WaitForFrames(std::uintmax_t more) const {
    const std::uintmax_t wanted =
        SizeOf(file) + more * (isFloat ? 4 : 2) * static_cast<unsigned int>(channels);
    WaitFor([&] { return SizeOf(file) >= wanted; });
}

std::vector<int> Recording::Finish() {
    WaitForFrames(static_cast<std::uintmax_t>(rate / 3));
    EndProcess(process, SIGTERM);
    process = -1;
    return isFloat ? FloatSamplesOf(ReadBytes(file)) : SamplesOf(ReadBytes(file));
}

std::vector<int> SamplesOf(const std::string& bytes) {
    std::vector<std::int16_t> samples(bytes.size() / 2);
    std::memcpy(samples.data(), bytes.data(), samples.size() * 2);
    std::erase(samples, 0);
    return {samples.begin(), samples.end()};
}

std::vector<int> FloatSamplesOf(const std::string& bytes) {
    std::vector<float> floats(bytes.size() / sizeof(float));
    std::memcpy(floats.data(), bytes.data(), floats.size() * sizeof(float));
    std::vector<int> samples;
    for (const float each : floats)
        if (each != 0)
            samples.push_back(static_cast<int>(std::lround(each * 0x1p31)));
    return samples;
}
