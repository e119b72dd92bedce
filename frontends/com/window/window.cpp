#include "window/window.h"

#include "object/text.h"
#include "window/editors/cell_button.h"
#include "window/editors/drop_list.h"
#include "window/editors/edit_box.h"
#include "window/editors/month_calendar.h"
#include "window/reading/accessible_grid.h"

#include <algorithm>
#include <utility>

namespace tablio::com {

namespace {

std::optional<MouseButton> pressedButton(UINT message) {
    switch (message) {
    case WM_LBUTTONDOWN:
        return MouseButton::Left;
    case WM_RBUTTONDOWN:
    case WM_RBUTTONDBLCLK:
        return MouseButton::Right;
    case WM_MBUTTONDOWN:
    case WM_MBUTTONDBLCLK:
        return MouseButton::Middle;
    default:
        return std::nullopt;
    }
}

} // namespace

std::shared_ptr<Window> Window::of(Tablio &core, WindowHost &host) {
    std::shared_ptr<Window> window(new Window(core, host));
    core.setFace(&window->face_);
    return window;
}

Window::Window(Tablio &core, WindowHost &host) : core_(&core), host_(&host), face_(*this, host) {
    measure();
}

Window::~Window() { close(); }

void Window::retire() noexcept {
    if (core_ == nullptr)
        return;
    core_->setFace(nullptr);
    core_ = nullptr;
    close();
    host_ = nullptr;
}

bool Window::open(HWND parent, const RECT &area) {
    if (!create(nullptr, parent, WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, WS_EX_CONTROLPARENT))
        return false;
    const auto press = [this](WidgetId id) {
        return [this, id] { tell([id](Input &input) { input.buttonPressed(id); }); };
    };
    editBox_ = std::make_unique<EditBox>(*this);
    lookupButton_ = std::make_unique<CellButton>(*this, CellButton::Sign::Dots, L"Look up",
                                                 press(WidgetId::cmdLookup));
    calendarButton_ = std::make_unique<CellButton>(*this, CellButton::Sign::Arrow, L"Calendar",
                                                   press(WidgetId::cmdCalender));
    arrowButton_ = std::make_unique<CellButton>(*this, CellButton::Sign::Arrow, L"Choices", [this] {
        const std::optional<ScreenEditor> editor = screen().editor();
        const bool isDropped = screen().list().isDropped;
        if (editor)
            tell([&](Input &input) { input.comboDropped(editor->edit, !isDropped); });
    });
    list_ = std::make_unique<DropList>(*this);
    calendar_ = std::make_unique<MonthCalendar>(*this);
    place(area);
    showAnew();
    return isOpen();
}

void Window::close() noexcept {
    // The box first, which hears most.
    editBox_.reset();
    list_.reset();
    calendar_.reset();
    lookupButton_.reset();
    calendarButton_.reset();
    arrowButton_.reset();
    destroy();
    if (frame_ != nullptr)
        DeleteObject(std::exchange(frame_, nullptr));
    frameSize_ = {};
}

void Window::failed(const char *what) noexcept {
    if (host_ != nullptr)
        host_->handlerFailed(what);
}

void Window::takeKeyboard() {
    if (editBox_ != nullptr && GetFocus() != editBox_->handle() && isShown() &&
        !host_->isDesigned())
        SetFocus(editBox_->handle());
}

bool Window::hasKeyboard() const noexcept {
    return editBox_ != nullptr && GetFocus() == editBox_->handle();
}

bool Window::enter() {
    if (isOpen() && hasKeyboard() && !core_->input().hasKeyboard())
        tell([](Input &input) { input.focusEntered(); });
    return isOpen();
}

void Window::leftFor(HWND other) {
    if (!isOpen())
        return;
    // A list, a menu, a message or another program's window leaves the open editor as it is.
    const bool stays = other == nullptr || other == handle() || IsChild(handle(), other) != FALSE ||
                       GetAncestor(other, GA_ROOT) != GetAncestor(handle(), GA_ROOT);
    showCurrentCell();
    if (stays)
        return;
    leftForForm();
    if (isOpen())
        host_->keyboardWent();
}

void Window::leftForForm() {
    if (isOpen())
        editBox_->commitComposition();
    if (isOpen() && core_->input().hasKeyboard())
        tell([](Input &input) { input.focusLeft(); });
}

bool Window::wantsKey(const MSG &key) const {
    return editBox_ != nullptr && editBox_->wantsKey(key);
}

LRESULT Window::message(UINT message, WPARAM first, LPARAM second) {
    if (core_ == nullptr)
        return inherited(message, first, second);
    if (!host_->isDesigned()) {
        if (const std::optional<LRESULT> result = mouseMessage(message, first, second))
            return *result;
    }
    switch (message) {
    case WM_PAINT:
        paint();
        return 0;
    case WM_ERASEBKGND:
        return 1;
    case WM_SIZE:
        arrange();
        showScrolled();
        return 0;
    case WM_SETFOCUS:
        takeKeyboard();
        return 0;
    case WM_SHOWWINDOW:
        if (second == 0)
            shownOrHidden(first != FALSE);
        return 0;
    case WM_ENABLE:
        core_->setEnabled(first != FALSE);
        showAnew();
        return 0;
    case WM_VSCROLL:
        scrollBarMoved(SB_VERT, LOWORD(first));
        return 0;
    case WM_HSCROLL:
        scrollBarMoved(SB_HORZ, LOWORD(first));
        return 0;
    case WM_SETTINGCHANGE:
    case WM_SYSCOLORCHANGE:
    case WM_THEMECHANGED:
    case WM_FONTCHANGE:
    case 0x02E3: // WM_DPICHANGED_AFTERPARENT
        showAnew();
        return 0;
    case WM_GETOBJECT:
        if (static_cast<LONG>(second) != OBJID_CLIENT)
            return inherited(message, first, second);
        return LresultFromObject(
            __uuidof(IAccessible), first,
            ComPtr<IAccessible>::taken(new AccessibleGrid(weak_from_this())).get());
    case enterMessage:
        enter();
        return 0;
    case menuMessage:
        runMenu(pointOf(second));
        return 0;
    case boxMessage:
        runBox();
        return 0;
    default:
        return inherited(message, first, second);
    }
}

std::optional<LRESULT> Window::mouseMessage(UINT message, WPARAM first, LPARAM second) {
    const POINT at = pointOf(second);
    if (const std::optional<MouseButton> button = pressedButton(message)) {
        mousePressed(*button, at);
        return 0;
    }
    switch (message) {
    case WM_LBUTTONDBLCLK:
        SetCapture(handle());
        if (enter())
            tell([&](Input &input) { input.doubleClick(twips(at.x), twips(at.y)); });
        return 0;
    case WM_LBUTTONUP:
        mouseReleased(MouseButton::Left, at);
        return 0;
    case WM_RBUTTONUP:
        mouseReleased(MouseButton::Right, at);
        // The form may have a menu of its own.
        return isOpen() && !core_->GridPopUpMenu() ? inherited(message, first, second) : 0;
    case WM_MBUTTONUP:
        mouseReleased(MouseButton::Middle, at);
        return 0;
    case WM_MOUSEMOVE:
        if (GetCapture() == handle())
            tell([&](Input &input) { input.mouseMove(twips(at.x), twips(at.y)); });
        return 0;
    case WM_MOUSEWHEEL:
    case WM_MOUSEHWHEEL:
        if (wheelTurned(message == WM_MOUSEWHEEL && (LOWORD(first) & MK_SHIFT) == 0,
                        (message == WM_MOUSEHWHEEL ? -1 : 1) * static_cast<short>(HIWORD(first))))
            return 0;
        return std::nullopt;
    case WM_SETCURSOR: {
        POINT where;
        GetCursorPos(&where);
        ScreenToClient(handle(), &where);
        if (LOWORD(second) != HTCLIENT || reinterpret_cast<HWND>(first) != handle() ||
            !core_->input().isColumnEdge(twips(where.x), twips(where.y)))
            return std::nullopt;
        SetCursor(LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_SIZEWE)));
        return TRUE;
    }
    default:
        return std::nullopt;
    }
}

void Window::mousePressed(MouseButton button, POINT at) {
    // What is being composed belongs to the cell that it was composed in.
    editBox_->commitComposition();
    if (!isOpen())
        return;
    SetCapture(handle());
    takeKeyboard();
    if (enter())
        tell([&](Input &input) { input.mouseDown(button, twips(at.x), twips(at.y)); });
}

void Window::mouseReleased(MouseButton button, POINT at) {
    if (GetCapture() == handle())
        ReleaseCapture();
    tell([&](Input &input) { input.mouseUp(button, twips(at.x), twips(at.y)); });
}

bool Window::wheelTurned(bool isUpright, int distance) {
    if (list_->handle() != nullptr) {
        SendMessageW(list_->handle(), WM_VSCROLL, distance > 0 ? SB_LINEUP : SB_LINEDOWN, 0);
        return true;
    }
    // One column a notch, and as many rows as the user has asked for everywhere.
    UINT lines = 3;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    const int rows =
        lines == WHEEL_PAGESCROLL ? screen().rowRange().page : std::max(1, static_cast<int>(lines));
    Dealt dealt = Dealt::Yes;
    tell([&](Input &input) {
        dealt = input.wheelTurned(WheelUnit::Part, isUpright ? 0 : distance,
                                  isUpright ? distance * rows : 0);
    });
    // A grid that has nothing to scroll leaves the wheel to what it stands in.
    return dealt == Dealt::Yes;
}

void Window::scrollBarMoved(int bar, WORD action) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    GetScrollInfo(handle(), bar, &info);
    const ScrollRange range = bar == SB_VERT ? screen().rowRange() : screen().colRange();
    int position = range.position;
    switch (action) {
    case SB_LINEUP:
        --position;
        break;
    case SB_LINEDOWN:
        ++position;
        break;
    case SB_PAGEUP:
        position -= range.page;
        break;
    case SB_PAGEDOWN:
        position += range.page;
        break;
    case SB_TOP:
        position = range.first;
        break;
    case SB_BOTTOM:
        position = range.last;
        break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
        position = info.nTrackPos;
        break;
    default:
        return;
    }
    position = std::clamp(position, range.first, range.last);
    tell([&](Input &input) {
        if (bar == SB_VERT)
            input.scrollTo(position, screen().colRange().position);
        else
            input.scrollTo(screen().rowRange().position, position);
    });
}

/// Who hides a form looks at what was entered next.
void Window::shownOrHidden(bool isShownNow) {
    if (isShownNow)
        return;
    tell([](Input &input) {
        if (input.hasKeyboard())
            input.focusLeft();
        else
            input.endEdit();
    });
}

void Window::popUpMenu(POINT at) { PostMessageW(handle(), menuMessage, 0, MAKELPARAM(at.x, at.y)); }

/// The platform runs a loop of its own while a menu is open, so this is no part of any other call.
void Window::runMenu(POINT at) {
    const HMENU menu = CreatePopupMenu();
    UINT number = 0;
    for (const ScreenMenuEntry &entry : screen().menu()) {
        ++number;
        if (entry.caption.empty())
            AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
        else
            AppendMenuW(menu,
                        (entry.isEnabled ? MF_ENABLED : MF_GRAYED) |
                            (entry.isChecked ? MF_CHECKED : MF_UNCHECKED),
                        number, wide(entry.caption).c_str());
    }
    ClientToScreen(handle(), &at);
    const int chosen = TrackPopupMenuEx(menu, TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON, at.x,
                                        at.y, handle(), nullptr);
    DestroyMenu(menu);
    if (chosen > 0)
        tell([&](Input &input) { input.menuChosen(static_cast<MenuEntry>(chosen - 1)); });
}

void Window::ask(std::wstring title, std::wstring text, UINT kind) {
    boxes_.push_back({std::move(title), std::move(text), kind});
    PostMessageW(handle(), boxMessage, 0, 0);
}

void Window::runBox() {
    if (boxes_.empty())
        return;
    const Box box = std::move(boxes_.front());
    boxes_.erase(boxes_.begin());
    const HWND form = GetAncestor(handle(), GA_ROOT);
    const int answer = MessageBoxW(form, box.text.c_str(), box.title.c_str(), box.kind);
    // A form that keeps no account of its keyboard takes it to itself.
    if (isOpen() && core_->input().hasKeyboard())
        takeKeyboard();
    if ((box.kind & MB_TYPEMASK) == MB_YESNO)
        tell([&](Input &input) { input.questionAnswered(answer == IDYES); });
}

} // namespace tablio::com
