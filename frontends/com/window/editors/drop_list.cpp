#include "window/editors/drop_list.h"

#include "object/text.h"
#include "window/window.h"

#include <algorithm>
#include <utility>

namespace tablio::com {

namespace {

constexpr int mostInSight = 8;
constexpr UINT closeMessage = WM_USER + 100;
constexpr const wchar_t *mark = L"TablioDropList";

} // namespace

std::shared_ptr<void> DropList::keptAlive() { return window_.weak_from_this().lock(); }

void DropList::putAway() {
    if (elsewhere_ != nullptr)
        UnhookWindowsHookEx(std::exchange(elsewhere_, nullptr));
    destroy();
}

void DropList::mirror(const ScreenEditor &editor, const RECT &area) {
    const ScreenList list = window_.screen().list();
    edit_ = editor.edit;
    const bool isSame = handle() != nullptr && std::equal(items_.begin(), items_.end(),
                                                          list.items.begin(), list.items.end());
    if (!isSame) {
        putAway();
        items_.assign(list.items.begin(), list.items.end());
        show(area, editor.Font);
    }
    if (SendMessageW(handle(), LB_GETCURSEL, 0, 0) != list.chosen)
        SendMessageW(handle(), LB_SETCURSEL, static_cast<WPARAM>(list.chosen), 0);
}

void DropList::show(const RECT &area, const Font &font) {
    const HWND form = GetAncestor(window_.handle(), GA_ROOT);
    if (!create(L"LISTBOX", form, WS_POPUP | WS_BORDER | WS_VSCROLL | LBS_NOINTEGRALHEIGHT,
                WS_EX_TOOLWINDOW | WS_EX_TOPMOST | WS_EX_NOACTIVATE))
        return;
    SendMessageW(handle(), WM_SETFONT, reinterpret_cast<WPARAM>(window_.fontOf(font).handle), 0);
    for (const std::string &item : items_)
        SendMessageW(handle(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(wide(item).c_str()));
    const auto itemHeight = static_cast<int>(SendMessageW(handle(), LB_GETITEMHEIGHT, 0, 0));
    const int count = std::clamp(static_cast<int>(items_.size()), 1, mostInSight);
    const int height = count * itemHeight + 2 * GetSystemMetrics(SM_CYBORDER);
    RECT place = area;
    MapWindowPoints(window_.handle(), nullptr, reinterpret_cast<POINT *>(&place), 2);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromRect(&place, MONITOR_DEFAULTTONEAREST), &monitor);
    const bool goesUp =
        place.bottom + height > monitor.rcWork.bottom && place.top - height >= monitor.rcWork.top;
    const int top = goesUp ? place.top - height : place.bottom;
    NativeWindow::place({place.left, top, place.right, top + height}, HWND_TOPMOST);
    SetPropW(handle(), mark, window_.handle());
    elsewhere_ = SetWindowsHookExW(WH_MOUSE, &mouseElsewhere, nullptr, GetCurrentThreadId());
}

int DropList::itemAt(POINT at) {
    const auto found =
        static_cast<DWORD>(SendMessageW(handle(), LB_ITEMFROMPOINT, 0, MAKELPARAM(at.x, at.y)));
    return HIWORD(found) != 0 ? -1 : static_cast<int>(LOWORD(found));
}

LRESULT DropList::message(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
    case WM_MOUSEACTIVATE:
        return MA_NOACTIVATE;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        return 0;
    case WM_MOUSEMOVE:
        if (const int item = itemAt(pointOf(second)); item >= 0)
            SendMessageW(handle(), LB_SETCURSEL, static_cast<WPARAM>(item), 0);
        return 0;
    case WM_LBUTTONUP:
        if (const int item = itemAt(pointOf(second)); item >= 0)
            window_.tell([&](Input &input) { input.comboItemChosen(edit_, item); });
        return 0;
    case closeMessage:
        window_.tell([&](Input &input) { input.comboDropped(edit_, false); });
        return 0;
    default:
        return inherited(message, first, second);
    }
}

namespace {

/// Closes a list whose grid the other window does not belong to. No lambda: on 32 bits those are
/// not called as the platform calls.
BOOL CALLBACK closeUnlessIn(HWND list, LPARAM other) {
    const HWND window = reinterpret_cast<HWND>(other);
    const HWND grid = static_cast<HWND>(GetPropW(list, mark));
    if (grid != nullptr && window != list && window != grid && IsChild(grid, window) == FALSE)
        SendMessageW(list, closeMessage, 0, 0);
    return TRUE;
}

} // namespace

/// A press in another of this thread's windows closes the list, and then counts as any press; of
/// those in the control itself the core knows. A list that is down is found by its mark, which says
/// whose it is: a hook is told nothing else.
LRESULT CALLBACK DropList::mouseElsewhere(int code, WPARAM message, LPARAM data) {
    const bool isPress = message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN ||
                         message == WM_NCLBUTTONDOWN || message == WM_NCRBUTTONDOWN;
    if (code == HC_ACTION && isPress) {
        const HWND pressed = reinterpret_cast<MOUSEHOOKSTRUCT *>(data)->hwnd;
        EnumThreadWindows(GetCurrentThreadId(), &closeUnlessIn, reinterpret_cast<LPARAM>(pressed));
    }
    return CallNextHookEx(nullptr, code, message, data);
}

} // namespace tablio::com
