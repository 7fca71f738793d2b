#include "sys/desktop/crash_report.h"

#include "sys/alternate_stack.h"
#include "sys/desktop/crash_lines.h"

#include <QString>
#include <QSysInfo>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <execinfo.h>
#include <fcntl.h>
#include <unistd.h>

namespace {

struct CrashSignal {
    int number;
    const char* name;
};
constexpr CrashSignal CrashSignals[] = {
    {SIGSEGV, "SIGSEGV"}, {SIGBUS, "SIGBUS"}, {SIGFPE, "SIGFPE"}, {SIGILL, "SIGILL"}, {SIGABRT, "SIGABRT"}};

constexpr unsigned int MostSeconds = 10; ///< for the report, lest a lock that is held keeps the process
constexpr int MaxFrames = 64;

/// All that the handler needs, made before it is.
struct Prepared {
    LFixedText path;
    LFixedText head;
    LFixedText report; ///< what the handler writes in
    std::array<void*, MaxFrames> frames{};
};
Prepared prepared;

std::atomic<const LCrashWitness*> crashWitness = nullptr;
std::atomic_flag crashed;
static_assert(std::atomic<const LCrashWitness*>::is_always_lock_free);

bool WriteAll(int file, std::string_view data) {
    while (!data.empty()) {
        const ssize_t written = write(file, data.data(), data.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        data.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

int CreateFile(const char* path, mode_t mode) {
    return open(path, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, mode);
}

void AddSignal(LFixedText& text, const siginfo_t& info) {
    for (const CrashSignal& each : CrashSignals)
        if (each.number == info.si_signo)
            text.Add(each.name);
    const bool byTheProcessor = info.si_code > 0;
    if (byTheProcessor && info.si_signo != SIGABRT)
        text.Add(" at ").AddHex(reinterpret_cast<std::uintptr_t>(info.si_addr));
}

/// Line by line: this is where a crash is most likely to crash again.
void WriteBackTrace(int file) {
    const int count = backtrace(prepared.frames.data(), MaxFrames);
    for (int i = 0; i < count; ++i) {
        prepared.report.Clear();
        AddCodeAddress(prepared.report, prepared.frames[static_cast<std::size_t>(i)]);
        WriteAll(file, prepared.report.Add("\n").View());
    }
}

void WriteReport(const siginfo_t& info, const LCrashWitness* witness) {
    const int file = CreateFile(prepared.path.CString(), 0600);
    if (file < 0)
        return;
    WriteAll(file, prepared.head.View());
    LFixedText& report = prepared.report;
    report.Add("Time: ");
    AddUtcTime(report);
    report.Add(" UTC\nSignal: ");
    AddSignal(report, info);
    WriteAll(file, report.Add("\n").View());
    report.Clear();
    if (witness)
        witness->DescribeAtCrash(report);
    WriteAll(file, report.Add("\nBack trace:\n").View());
    WriteBackTrace(file);
    close(file);
}

/// A second crash while it runs ends the process, and so does the time limit.
void HandleCrash(int signal, siginfo_t* info, void* /*context*/) {
    if (crashed.test_and_set())
        for (;;)
            pause(); // another thread is at it, and ends the process
    for (const CrashSignal& each : CrashSignals)
        std::signal(each.number, SIG_DFL);
    alarm(MostSeconds);
    const LCrashWitness* witness = crashWitness;
    if (witness)
        witness->SaveAtCrash();
    WriteReport(*info, witness);
    raise(signal); // which waits until the handler has returned
}

void PrepareHead(const std::string& head) {
    const QString system = QSysInfo::prettyProductName() + ", " + QSysInfo::kernelType() + " " +
                           QSysInfo::kernelVersion() + ", " + QSysInfo::currentCpuArchitecture() + ", Qt " +
                           qVersion();
    prepared.head.Add(head).Add("\nSystem: ").Add(system.toStdString()).Add("\n");
}

/// Their first call loads a library and allocates.
void PrepareBackTrace() {
    backtrace(prepared.frames.data(), MaxFrames);
    AddCodeAddress(prepared.report, prepared.frames[0]);
    prepared.report.Clear();
}

void Handle(int signal) {
    struct sigaction action {};
    struct sigaction before {};
    if (sigaction(signal, nullptr, &before) != 0 || before.sa_handler != SIG_DFL)
        return;
    action.sa_sigaction = HandleCrash;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK;
    sigfillset(&action.sa_mask);
    sigdelset(&action.sa_mask, SIGALRM);
    sigaction(signal, &action, nullptr);
}

} // namespace

void LInstallCrashReport(const std::string& path, const std::string& head) {
    prepared.path.Add(path);
    PrepareHead(head);
    PrepareBackTrace();
    static const LAlternateStack forSignals;
    for (const CrashSignal& each : CrashSignals)
        Handle(each.number);
}

void LSetCrashWitness(const LCrashWitness* witness) {
    crashWitness = witness;
}

bool LReplaceFileAtCrash(const char* path, const char* temporaryPath, const void* data, std::size_t bytes) {
    const int file = CreateFile(temporaryPath, 0666);
    if (file < 0)
        return false;
    const bool whole = WriteAll(file, {static_cast<const char*>(data), bytes});
    return close(file) == 0 && whole && rename(temporaryPath, path) == 0;
}
