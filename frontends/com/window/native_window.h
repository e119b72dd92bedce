#pragma once

/// One window of the platform that is ours: a plain one, or one of the platform's own kinds whose
/// messages come to us first. It knows nothing of grids. The object lives through each message that
/// it is dealing with, whatever a host does meanwhile.

#include <windows.h>

#include <memory>

namespace tablio::com {

class NativeWindow {
public:
    NativeWindow() = default;
    virtual ~NativeWindow() { destroy(); }
    NativeWindow(const NativeWindow &) = delete;
    NativeWindow &operator=(const NativeWindow &) = delete;

    /// Null while there is none.
    [[nodiscard]] HWND handle() const noexcept { return handle_; }
    [[nodiscard]] bool isShown() const noexcept { return IsWindowVisible(handle_) != FALSE; }
    /// Device pixels in its parent, or on the screen; shows it, too.
    void place(const RECT &area, HWND above = HWND_TOP) const;
    void hide() const { ShowWindow(handle_, SW_HIDE); }
    /// No message comes any more.
    void destroy() noexcept;

protected:
    /// A window of this kind, of our own plain one where there is no name. False where the platform
    /// has none to give.
    bool create(const wchar_t *kind, HWND parent, DWORD style, DWORD extended = 0);
    virtual LRESULT message(UINT message, WPARAM first, LPARAM second) = 0;
    /// What has to outlive a message.
    [[nodiscard]] virtual std::shared_ptr<void> keptAlive() = 0;
    /// What a window of this kind does by itself.
    LRESULT inherited(UINT message, WPARAM first, LPARAM second);

private:
    static LRESULT CALLBACK received(HWND handle, UINT message, WPARAM first, LPARAM second);

    HWND handle_ = nullptr;
    WNDPROC own_ = nullptr;
};

/// Where a position in a mouse message is, in the window's device pixels.
[[nodiscard]] inline POINT pointOf(LPARAM position) noexcept {
    return {static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position))};
}

/// The module that this code is in, a program or a library.
[[nodiscard]] HINSTANCE thisModule() noexcept;

} // namespace tablio::com
