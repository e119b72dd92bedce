#include "system_input.h"

#include <utility>

namespace tablio::scenario {

namespace {

void send(INPUT input) { SendInput(1, &input, sizeof input); }

} // namespace

void sendKey(WORD key, bool isDown) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    const bool isExtended = (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_INSERT ||
                            key == VK_DELETE || key == VK_APPS;
    input.ki.dwFlags = (isDown ? 0U : KEYEVENTF_KEYUP) | (isExtended ? KEYEVENTF_EXTENDEDKEY : 0U);
    send(input);
}

void sendMouse(POINT at, DWORD action) {
    // The desktop is so many units wide, whatever its pixels are.
    constexpr int units = 65536;
    const auto unit = [](LONG pixel, int metric) {
        const int size = GetSystemMetrics(metric);
        return (pixel * units + size - 1) / size;
    };
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = unit(at.x, SM_CXSCREEN);
    input.mi.dy = unit(at.y, SM_CYSCREEN);
    input.mi.dwFlags = action | MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
    send(input);
}

void click(POINT at) {
    sendMouse(at, MOUSEEVENTF_LEFTDOWN);
    sendMouse(at, MOUSEEVENTF_LEFTUP);
}

POINT middleOf(HWND window, const RECT &area) {
    POINT at{(area.left + area.right) / 2, (area.top + area.bottom) / 2};
    ClientToScreen(window, &at);
    return at;
}

HWND ownWindow(const wchar_t *kind) {
    struct Search {
        const wchar_t *kind;
        HWND found;
    } search{kind, nullptr};
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND window, LPARAM data) -> BOOL {
            auto &wanted = *reinterpret_cast<Search *>(data);
            wchar_t name[32]{};
            GetClassNameW(window, name, 32);
            if (IsWindowVisible(window) != FALSE && lstrcmpiW(name, wanted.kind) == 0)
                wanted.found = window;
            return wanted.found == nullptr;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

std::optional<UINT> &menuChoice() {
    static std::optional<UINT> entry;
    return entry;
}

bool &hasPutAside() {
    static bool was = false;
    return was;
}

void CALLBACK putAside(HWND, UINT, UINT_PTR, DWORD) {
    const HWND message = ownWindow(L"#32770");
    const HWND menu = ownWindow(L"#32768");
    hasPutAside() |= message != nullptr || menu != nullptr;
    if (message != nullptr)
        PostMessageW(message, WM_COMMAND, IDOK, 0);
    if (menu == nullptr)
        return;
    if (const auto entry = std::exchange(menuChoice(), {})) {
        RECT area;
        const auto handle = reinterpret_cast<HMENU>(SendMessageW(menu, MN_GETHMENU, 0, 0));
        GetMenuItemRect(nullptr, handle, *entry, &area);
        click({(area.left + area.right) / 2, (area.top + area.bottom) / 2});
    } else {
        EndMenu();
    }
}

HWND childOf(HWND parent, const wchar_t *kind, const wchar_t *text) {
    HWND found = nullptr;
    while ((found = FindWindowExW(parent, found, nullptr, nullptr)) != nullptr) {
        wchar_t name[64]{};
        GetClassNameW(found, name, 64);
        wchar_t title[64]{};
        GetWindowTextW(found, title, 64);
        if (lstrcmpiW(name, kind) == 0 && (text == nullptr || lstrcmpW(title, text) == 0))
            return found;
        if (const HWND inner = childOf(found, kind, text))
            return inner;
    }
    return nullptr;
}

} // namespace tablio::scenario
