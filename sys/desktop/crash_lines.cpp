#include "sys/desktop/crash_lines.h"

#include <chrono>
#include <cstring>
#include <dlfcn.h>

namespace {

std::string_view NameOf(const char* path) {
    const char* slash = std::strrchr(path, '/');
    return slash ? slash + 1 : path;
}

} // namespace

void AddUtcTime(LFixedText& text) {
    const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    const auto today = std::chrono::floor<std::chrono::days>(now);
    const std::chrono::year_month_day date(today);
    const std::chrono::hh_mm_ss time(now - today);
    text.AddNumber(int{date.year()}).Add("-").AddNumber(unsigned{date.month()}, 2);
    text.Add("-").AddNumber(unsigned{date.day()}, 2).Add(" ").AddNumber(time.hours().count(), 2);
    text.Add(":").AddNumber(time.minutes().count(), 2).Add(":").AddNumber(time.seconds().count(), 2);
}

void AddCodeAddress(LFixedText& text, const void* code) {
    const auto address = reinterpret_cast<std::uintptr_t>(code);
    Dl_info found{};
    if (dladdr(code, &found) == 0 || !found.dli_fname) {
        text.AddHex(address);
        return;
    }
    text.Add(NameOf(found.dli_fname)).Add("+");
    text.AddHex(address - reinterpret_cast<std::uintptr_t>(found.dli_fbase));
    if (found.dli_sname) {
        text.Add(" ").Add(found.dli_sname).Add("+");
        text.AddHex(address - reinterpret_cast<std::uintptr_t>(found.dli_saddr));
    }
}
