#include "server/module.h"

#include <atomic>

// The linker puts it where the file begins in memory.
extern "C" IMAGE_DOS_HEADER __ImageBase; // NOLINT(bugprone-reserved-identifier)

namespace tablio::com {

namespace {

std::atomic<long> users{0};

} // namespace

KeepsModule::KeepsModule() noexcept { ++users; }

KeepsModule::~KeepsModule() { --users; }

long moduleUsers() noexcept { return users; }

void lockModule(bool locks) noexcept { users += locks ? 1 : -1; }

HINSTANCE moduleHandle() noexcept { return reinterpret_cast<HINSTANCE>(&__ImageBase); }

WideText modulePath() {
    WideText path(512, 0);
    for (;;) {
        const DWORD length =
            GetModuleFileNameW(moduleHandle(), path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

} // namespace tablio::com
