#include "window/native_window.h"

namespace tablio::com {

namespace {

/// It has no code of ours, so it may outlive a library that is unloaded.
const wchar_t *plainKind() {
    static const wchar_t *const name = L"TablioWindow";
    WNDCLASSW kind{};
    if (GetClassInfoW(thisModule(), name, &kind) == FALSE) {
        kind.style = CS_DBLCLKS;
        kind.lpfnWndProc = DefWindowProcW;
        kind.hInstance = thisModule();
        kind.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
        kind.lpszClassName = name;
        RegisterClassW(&kind);
    }
    return name;
}

} // namespace

HINSTANCE thisModule() noexcept {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                           GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&thisModule), &module);
    return module;
}

bool NativeWindow::create(const wchar_t *kind, HWND parent, DWORD style, DWORD extended) {
    handle_ = CreateWindowExW(extended, kind != nullptr ? kind : plainKind(), L"", style, 0, 0, 0,
                              0, parent, nullptr, thisModule(), nullptr);
    if (handle_ == nullptr)
        return false;
    SetWindowLongPtrW(handle_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    own_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(handle_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&received)));
    return true;
}

void NativeWindow::destroy() noexcept {
    if (handle_ == nullptr)
        return;
    const HWND handle = handle_;
    handle_ = nullptr;
    SetWindowLongPtrW(handle, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(own_));
    SetWindowLongPtrW(handle, GWLP_USERDATA, 0);
    DestroyWindow(handle);
}

void NativeWindow::place(const RECT &area, HWND above) const {
    SetWindowPos(handle_, above, area.left, area.top, area.right - area.left,
                 area.bottom - area.top, SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

LRESULT NativeWindow::inherited(UINT message, WPARAM first, LPARAM second) {
    return handle_ == nullptr ? 0 : CallWindowProcW(own_, handle_, message, first, second);
}

LRESULT CALLBACK NativeWindow::received(HWND handle, UINT message, WPARAM first, LPARAM second) {
    auto *const self = reinterpret_cast<NativeWindow *>(GetWindowLongPtrW(handle, GWLP_USERDATA));
    if (self == nullptr)
        return DefWindowProcW(handle, message, first, second);
    if (message == WM_NCDESTROY) {
        // The host has destroyed the window that this one stands in.
        SetWindowLongPtrW(handle, GWLP_USERDATA, 0);
        self->handle_ = nullptr;
        return CallWindowProcW(self->own_, handle, message, first, second);
    }
    const std::shared_ptr<void> alive = self->keptAlive();
    return self->message(message, first, second);
}

} // namespace tablio::com
