#include <tablio/testing/com_driver.h>

#include "com_host.h"
#include "native_difference.h"
#include "system_input.h"

#include "container.h"
#include "object/control.h"
#include "object/text.h"
#include "window/window.h"

#include <tablio/members.h>
#include <tablio/testing/script.h>

#include <commctrl.h>
#include <olectl.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace tablio::scenario {

namespace {

constexpr int gridTop = 30;
constexpr UINT usualDoubleClick = 500;
/// In milliseconds.
constexpr DWORD quietTime = 30;

/// What a handler's failure became, which the control reports as any program's debugger sees it.
std::string &failure() {
    static std::string text;
    return text;
}

LONG CALLBACK debugOutput(EXCEPTION_POINTERS *exception) {
    const EXCEPTION_RECORD &record = *exception->ExceptionRecord;
    if (record.ExceptionCode == DBG_PRINTEXCEPTION_C && record.NumberParameters > 1)
        failure() = reinterpret_cast<const char *>(record.ExceptionInformation[1]);
    return record.ExceptionCode == DBG_PRINTEXCEPTION_C ? EXCEPTION_CONTINUE_EXECUTION
                                                        : EXCEPTION_CONTINUE_SEARCH;
}

} // namespace

/// The host's window: one other field above the control.
struct ComDriver::Form {
    HWND window = nullptr;
    HWND elsewhere = nullptr;
    std::unique_ptr<Container> container;
    com::ComPtr<IUnknown> control;
    com::ComPtr<ComHost> host;
    Tablio *core = nullptr;
    com::Window *view = nullptr;
    SIZE size{};
    bool isShown = false;

    Form() {
        window = CreateWindowExW(WS_EX_CONTROLPARENT, L"TablioForm", L"Tablio",
                                 WS_POPUP | WS_CLIPCHILDREN, 0, 0, 0, 0, nullptr, nullptr, nullptr,
                                 nullptr);
        elsewhere = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 0, 40,
                                    20, window, nullptr, nullptr, nullptr);
        container = std::make_unique<Container>(window);
    }
    void pump() const {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
            if (container->translate(message))
                continue;
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    /// What a desktop tells a window that has come to the front comes when it likes, and would
    /// change which keys are held meanwhile.
    void settleDown() const {
        do
            pump();
        while (MsgWaitForMultipleObjects(0, nullptr, FALSE, quietTime, QS_ALLINPUT & ~QS_TIMER) ==
               WAIT_OBJECT_0);
    }
    [[nodiscard]] RECT place() const { return {0, gridTop, size.cx, gridTop + size.cy}; }
    void letGo() {
        core = nullptr;
        if (view != nullptr)
            container->letGo();
        view = nullptr;
        host.reset();
        control.reset();
    }
    ~Form() {
        letGo();
        DestroyWindow(window);
    }
};

ComDriver::ComDriver() {
    OleInitialize(nullptr);
    WNDCLASSW kind{};
    kind.lpfnWndProc = DefWindowProcW;
    kind.lpszClassName = L"TablioForm";
    RegisterClassW(&kind);
    AddVectoredExceptionHandler(1, &debugOutput);
    SystemParametersInfoW(SPI_SETWHEELSCROLLLINES, 1, nullptr, 0);
    SetDoubleClickTime(1);
    form_ = std::make_unique<Form>();
}

ComDriver::~ComDriver() {
    form_.reset();
    SetDoubleClickTime(usualDoubleClick);
    OleUninitialize();
}

template <typename Action> auto ComDriver::deliver(Action action) {
    const auto finish = [this] {
        form_->pump();
        if (std::exchange(hasPutAside(), false))
            form_->settleDown();
        if (!failure().empty())
            throw Error(std::exchange(failure(), {}));
        if (depth_ > 1 || form_->core == nullptr || !form_->isShown)
            return;
        if (const std::string difference = nativeDifference(*form_->view); !difference.empty())
            throw ScriptError(difference);
    };
    failure().clear();
    const UINT_PTR timer = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, &putAside);
    ++depth_;
    const std::shared_ptr<void> shallower(nullptr, [&](void *) {
        --depth_;
        KillTimer(nullptr, timer);
    });
    if constexpr (std::is_void_v<decltype(action())>) {
        action();
        finish();
    } else {
        auto result = action();
        finish();
        return result;
    }
}

Tablio *ComDriver::core() { return form_->core; }

void ComDriver::create(Twips width, Twips height) {
    destroy();
    form_->isShown = false;
    if (FAILED(com::Control::create(nullptr, IID_IUnknown,
                                    reinterpret_cast<void **>(form_->control.out()))))
        throw Error("no control could be made");
    form_->core = &com::Control::of(*form_->control.get())->table();
    auto &own = static_cast<com::WindowFace &>(*form_->core->face());
    form_->view = &own.window();
    form_->view->showBars(false);
    face.wrap(&own);
    form_->core->setFace(&face);
    // The control itself answers and tells.
    face.locale.reset();
    face.clipboard.reset();
    face.writesNotices = false;
    form_->container->hold(form_->control.get());
    com::ComPtr<IPersistStreamInit>::of(form_->control.get())->InitNew();
    form_->host = com::ComPtr<ComHost>::taken(new ComHost);
    form_->host->noticed = [this](std::string_view name) { face.notices.emplace_back(name); };
    form_->host->connect(*form_->control.get());
    setClipboard({});
    setLocale({});
    resize(width, height);
}

void ComDriver::destroy() {
    face.wrap(nullptr);
    // Nobody hears of an end that the scenario has already seen.
    if (form_->host)
        form_->host->host = nullptr;
    form_->letGo();
}

void ComDriver::show() {
    deliver([this] {
        if (std::exchange(form_->isShown, true)) {
            form_->core->Show();
            return;
        }
        // One window for all scenarios: a new one in front takes the desktop a while.
        if (GetForegroundWindow() != form_->window) {
            ShowWindow(form_->window, SW_SHOW);
            SetForegroundWindow(form_->window);
            form_->settleDown();
        }
        SetFocus(form_->elsewhere);
        form_->container->show(form_->place());
    });
}

void ComDriver::resize(Twips width, Twips height) {
    form_->size = {width / twipsPerPixel, height / twipsPerPixel};
    SetWindowPos(form_->window, nullptr, 0, 0, std::max(60L, form_->size.cx),
                 form_->size.cy + gridTop, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOMOVE);
    form_->container->move(form_->place());
}

void ComDriver::enterFocus() {
    deliver([this] { form_->container->enter(); });
}

void ComDriver::leaveFocus() {
    deliver([this] { SetFocus(form_->elsewhere); });
}

void ComDriver::setHost(HostEvents *host) { form_->host->host = host; }

namespace {

com::ComPtr<IDispatch> members(IUnknown *control) { return com::ComPtr<IDispatch>::of(control); }

/// The tags of single cells are no member; what holds them all is.
bool isTag(std::string_view name, const Values &index) {
    return name == "CellTag" && index.size() == 2;
}

} // namespace

Value ComDriver::callMember(std::string_view name, const Values &arguments) {
    return deliver([&] {
        return invoke(*members(form_->control.get()).get(), name,
                      DISPATCH_METHOD | DISPATCH_PROPERTYGET, arguments);
    });
}

void ComDriver::setMember(std::string_view name, const Values &index, const Value &value) {
    deliver([&] {
        if (isTag(name, index))
            return Driver::setMember(name, index, value);
        Values values = index;
        values.push_back(value);
        invoke(*members(form_->control.get()).get(), name, DISPATCH_PROPERTYPUT, values);
    });
}

Value ComDriver::readMember(std::string_view name, const Values &index) {
    return isTag(name, index)
               ? Driver::readMember(name, index)
               : invoke(*members(form_->control.get()).get(), name, DISPATCH_PROPERTYGET, index);
}

void ComDriver::setLocale(const NumberFormat &locale) {
    static std::vector<LCID> all;
    if (all.empty())
        EnumSystemLocalesW(
            [](LPWSTR number) -> BOOL {
                all.push_back(static_cast<LCID>(std::stoul(number, nullptr, 16)));
                return TRUE;
            },
            LCID_SUPPORTED);
    for (const LCID each : all) {
        form_->container->locale = each;
        form_->container->changed(DISPID_AMBIENT_LOCALEID);
        const NumberFormat found = form_->core->face()->numberFormat();
        // Scenarios paste dates with the day first.
        if (found.decimalSign == locale.decimalSign && found.groupSign == locale.groupSign &&
            found.groupSize == 3 && found.nextGroupSize == 0 &&
            form_->core->face()->dateOrder() == DateOrder::DayMonthYear)
            return;
    }
    // The user's own settings, then, in a language that has the day first.
    const auto set = [](LCTYPE what, std::string_view value) {
        SetLocaleInfoW(LOCALE_USER_DEFAULT, what, com::wide(value).c_str());
    };
    set(LOCALE_SDECIMAL, locale.decimalSign);
    set(LOCALE_STHOUSAND, locale.groupSign);
    set(LOCALE_SGROUPING, locale.groupSize == 0 ? "0" : "3;0");
    set(LOCALE_SSHORTDATE, "dd/MM/yyyy");
    form_->container->locale = LOCALE_USER_DEFAULT;
    form_->container->changed(DISPID_AMBIENT_LOCALEID);
}

void ComDriver::setClipboard(std::string_view text) { form_->core->face()->setClipboardText(text); }

HWND ComDriver::part(const wchar_t *kind, const wchar_t *text) const {
    return childOf(form_->view->handle(), kind, text);
}

void ComDriver::strike(const KeyStroke &stroke) {
    deliver([&] {
        // A key in a handler is another hand's than the one that is still down.
        const ShiftState before = std::exchange(held_, stroke.shift);
        const auto hold = [](ShiftState from, ShiftState to) {
            for (const auto &[held, key] :
                 {std::pair(Shift::Shift, VK_SHIFT), std::pair(Shift::Ctrl, VK_CONTROL),
                  std::pair(Shift::Alt, VK_MENU)}) {
                if ((from & held) != (to & held))
                    sendKey(static_cast<WORD>(key), (to & held) != 0);
            }
        };
        hold(before, stroke.shift);
        sendKey(static_cast<WORD>(stroke.key), true);
        form_->pump();
        sendKey(static_cast<WORD>(stroke.key), false);
        hold(stroke.shift, held_ = before);
    });
}

void ComDriver::compose(std::string_view text) {
    const HWND box = part(L"EDIT", nullptr);
    deliver([&] {
        SendMessageW(box, WM_IME_STARTCOMPOSITION, 0, 0);
        if (core() == nullptr || !core()->screen().editor())
            return;
        for (const wchar_t unit : com::wide(text))
            PostMessageW(box, WM_IME_CHAR, unit, 1);
        form_->pump();
        SendMessageW(box, WM_IME_ENDCOMPOSITION, 0, 0);
    });
}

void ComDriver::enterText(std::string_view text) {
    const HWND box = part(L"EDIT", nullptr);
    deliver([&] {
        for (const wchar_t unit : com::wide(text))
            PostMessageW(box, WM_CHAR, unit, 1);
    });
}

void ComDriver::settle(WidgetId /*editor*/, std::string_view text, int caret) {
    const HWND box = part(L"EDIT", nullptr);
    deliver([&] {
        SetWindowTextW(box, com::wide(text).c_str());
        SendMessageW(box, EM_SETSEL, static_cast<WPARAM>(caret), caret);
    });
}

POINT ComDriver::onScreen(Twips x, Twips y) const {
    POINT at{x / twipsPerPixel, y / twipsPerPixel};
    ClientToScreen(form_->view->handle(), &at);
    return at;
}

void ComDriver::pressMouse(MouseButton button, Twips x, Twips y) {
    deliver([&] {
        sendMouse(onScreen(x, y), button == MouseButton::Left    ? MOUSEEVENTF_LEFTDOWN
                                  : button == MouseButton::Right ? MOUSEEVENTF_RIGHTDOWN
                                                                 : MOUSEEVENTF_MIDDLEDOWN);
    });
}

void ComDriver::moveMouse(Twips x, Twips y) {
    deliver([&] { sendMouse(onScreen(x, y), MOUSEEVENTF_MOVE); });
}

void ComDriver::releaseMouse(MouseButton button, Twips x, Twips y) {
    deliver([&] {
        if (core() == nullptr)
            return;
        sendMouse(onScreen(x, y), button == MouseButton::Left    ? MOUSEEVENTF_LEFTUP
                                  : button == MouseButton::Right ? MOUSEEVENTF_RIGHTUP
                                                                 : MOUSEEVENTF_MIDDLEUP);
    });
}

void ComDriver::doubleClick(Twips x, Twips y) {
    deliver([&] {
        SetDoubleClickTime(10 * usualDoubleClick);
        sendMouse(onScreen(x, y), MOUSEEVENTF_LEFTDOWN);
        form_->pump();
        SetDoubleClickTime(1);
    });
}

void ComDriver::scrollTo(int topRow, int leftCol) {
    deliver([&] {
        const Screen &screen = core()->screen();
        const auto turn = [this](UINT message, int notches) {
            SendMessageW(form_->view->handle(), message,
                         static_cast<WPARAM>(MAKELONG(0, notches * WHEEL_DELTA)), 0);
        };
        turn(WM_MOUSEWHEEL, screen.rowRange().position - topRow);
        // A wheel turns to the right, where the earlier columns are for who reads from there.
        const int later = screen.isRightToLeft() ? -1 : 1;
        turn(WM_MOUSEHWHEEL, later * (leftCol - screen.colRange().position));
    });
}

void ComDriver::pushButton(WidgetId button) {
    const HWND window =
        part(L"TablioWindow", button == WidgetId::cmdLookup ? L"Look up" : L"Calendar");
    deliver([&] {
        RECT area;
        GetClientRect(window, &area);
        click(middleOf(window, area));
    });
}

void ComDriver::chooseMenuEntry(MenuEntry entry) {
    deliver([&] {
        menuChoice() = static_cast<UINT>(entry);
        form_->view->face().popUpMenu(0, 0);
    });
}

void ComDriver::chooseItem(int index) {
    deliver([&] {
        if (!core()->screen().list().isDropped) {
            RECT arrow;
            const HWND button = part(L"TablioWindow", L"Choices");
            GetClientRect(button, &arrow);
            click(middleOf(button, arrow));
            form_->pump();
        }
        const HWND list = ownWindow(L"ListBox");
        RECT item;
        SendMessageW(list, LB_SETTOPINDEX, static_cast<WPARAM>(index), 0);
        SendMessageW(list, LB_GETITEMRECT, static_cast<WPARAM>(index),
                     reinterpret_cast<LPARAM>(&item));
        click(middleOf(list, item));
    });
}

void ComDriver::pickDay(const Date &day) {
    deliver([&] {
        const HWND calendar = part(MONTHCAL_CLASSW, nullptr);
        SYSTEMTIME wanted{};
        wanted.wYear = static_cast<WORD>(day.year);
        wanted.wMonth = static_cast<WORD>(day.month);
        wanted.wDay = static_cast<WORD>(day.day);
        SendMessageW(calendar, MCM_SETCURSEL, 0, reinterpret_cast<LPARAM>(&wanted));
        RECT area;
        GetClientRect(calendar, &area);
        MCHITTESTINFO hit{};
        hit.cbSize = MCHITTESTINFO_V1_SIZE;
        for (hit.pt.y = 0; hit.pt.y < area.bottom; hit.pt.y += 4) {
            for (hit.pt.x = 0; hit.pt.x < area.right; hit.pt.x += 4) {
                const LRESULT what =
                    SendMessageW(calendar, MCM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
                if (what != MCHT_CALENDARDATE || hit.st.wDay != wanted.wDay)
                    continue;
                click(middleOf(calendar, {hit.pt.x, hit.pt.y, hit.pt.x + 2, hit.pt.y + 2}));
                return;
            }
        }
    });
}

} // namespace tablio::scenario
