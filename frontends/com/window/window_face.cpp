#include "window/window_face.h"

#include "object/text.h"
#include "window/window.h"

namespace tablio::com {

namespace {

/// In milliseconds: events run this seldom during a scan, and looks at the clock that are this far
/// apart belong to different scans.
constexpr ULONGLONG eventInterval = 50;
constexpr ULONGLONG scanGap = 20;
constexpr unsigned callsPerLook = 64;

} // namespace

void WindowFace::shown() { window_.mirror(); }

bool WindowFace::canTakeFocus() const { return window_.isShown(); }

void WindowFace::takeFocus() { window_.takeKeyboard(); }

void WindowFace::areaChanged(const Rect &area) { window_.showArea(area); }

void WindowFace::scrolled() {
    window_.arrange();
    window_.showScrolled();
}

void WindowFace::popUpMenu(Twips x, Twips y) {
    const DevicePixels pixels = window_.pixels();
    window_.popUpMenu({pixels.edge(x), pixels.edge(y)});
}

void WindowFace::showWarning(std::string_view title, std::string_view text) {
    window_.ask(wide(title), wide(text), MB_OK | MB_ICONWARNING);
}

bool WindowFace::showQuestion(std::string_view title, std::string_view text) {
    if (!window_.isShown())
        return false;
    window_.ask(wide(title), wide(text), MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2);
    return true;
}

Font WindowFace::defaultFont() const {
    if (const std::optional<Font> font = window_.host().formFont())
        return *font;
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    const LOGFONTW &font = metrics.lfMessageFont;
    const HDC device = GetDC(nullptr);
    const int dpi = GetDeviceCaps(device, LOGPIXELSY);
    ReleaseDC(nullptr, device);
    const float points =
        static_cast<float>(std::abs(font.lfHeight)) * 72.0F / static_cast<float>(dpi);
    return {narrow(WideView(font.lfFaceName)), points, font.lfWeight >= FW_BOLD,
            font.lfItalic != 0};
}

void WindowFace::letPendingEventsRun() {
    if (++calls_ % callsPerLook != 0)
        return;
    const ULONGLONG now = GetTickCount64();
    const bool isNewScan = now - lastLook_ > scanGap;
    lastLook_ = now;
    if (isNewScan)
        lastEvents_ = now;
    if (now - lastEvents_ < eventInterval)
        return;
    lastEvents_ = now;
    // What the user does waits, and a window of somebody else's that paints for ever ends this,
    // too.
    MSG message;
    for (unsigned most = callsPerLook; most > 0; --most) {
        if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE | PM_QS_PAINT | PM_QS_SENDMESSAGE) ==
            FALSE)
            return;
        DispatchMessageW(&message);
    }
}

} // namespace tablio::com
