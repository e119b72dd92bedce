#include "pages/page_window.h"

#include "object/com_object.h"
#include "object/text.h"

#include <algorithm>
#include <climits>

namespace tablio::com {

namespace {

/// In pixels of a screen with 96 to the inch: a row, the widgets in it, and the parts of a column.
constexpr int rowHeight = 28;
constexpr int widgetHeight = 22;
constexpr int labelWidth = 130;
constexpr int boxWidth = 150;
constexpr int spinnerWidth = 18;
constexpr int margin = 8;
constexpr int listHeight = 160;

int scaled(int pixels) noexcept {
    const HDC screen = GetDC(nullptr);
    const int scale = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return MulDiv(pixels, scale, USER_DEFAULT_SCREEN_DPI);
}

/// A spinner stands in the box before it.
bool hasPlace(const PageControl &control) noexcept {
    return control.kind() != PageControlKind::Spinner;
}

int rowsOf(const PropertyPage &page) noexcept {
    const auto count = std::count_if(page.controls().begin(), page.controls().end(),
                                     [](const PageControl *one) { return hasPlace(*one); });
    return static_cast<int>((count + 1) / 2);
}

std::string textOf(HWND window) {
    WideText text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, 0);
    text.resize(static_cast<std::size_t>(
        GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return narrow(text);
}

/// What a rule of the page throws has nowhere to go: pages show no messages.
template <typename Action> void quietly(const Action &action) noexcept {
    try {
        action();
    } catch (...) {
        return;
    }
}

} // namespace

/// A text box whose keys the page judges.
class PageWindow::Box final : public NativeWindow {
public:
    Box(PageWindow &window, PageTextBox &model) noexcept : window_(window), model_(model) {}
    ~Box() override { destroy(); }

    bool createIn(HWND parent) {
        return create(L"EDIT", parent, WS_CHILD | WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL,
                      WS_EX_CLIENTEDGE);
    }

private:
    LRESULT message(UINT message, WPARAM first, LPARAM second) override {
        if (message == WM_CHAR) {
            DWORD start = 0;
            DWORD end = 0;
            SendMessageW(handle(), EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                         reinterpret_cast<LPARAM>(&end));
            const bool isKey = first >= ' ' || first == VK_BACK;
            if (isKey &&
                !window_.page_.takesKey(model_, static_cast<char32_t>(first),
                                        static_cast<int>(start), static_cast<int>(end - start)))
                return 0;
        }
        return inherited(message, first, second);
    }
    std::shared_ptr<void> keptAlive() override { return window_.keptAlive(); }

    PageWindow &window_;
    PageTextBox &model_;
};

PageWindow::PageWindow(IUnknown &owner, PropertyPages &pages, PropertyPage &page) noexcept
    : owner_(owner), pages_(pages), page_(page) {}

PageWindow::~PageWindow() {
    widgets_.clear();
    destroy();
    if (font_ != nullptr)
        DeleteObject(font_);
}

std::shared_ptr<void> PageWindow::keptAlive() {
    return std::make_shared<ComPtr<IUnknown>>(&owner_);
}

SIZE PageWindow::sizeOf(const PropertyPage &page) noexcept {
    return {scaled(2 * (labelWidth + boxWidth) + 3 * margin),
            scaled(rowsOf(page) * rowHeight + 2 * margin)};
}

bool PageWindow::createIn(HWND parent, const RECT &place) {
    if (!create(nullptr, parent, WS_CHILD | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT))
        return false;
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof(metrics);
    if (SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0) != FALSE)
        font_ = CreateFontIndirectW(&metrics.lfMessageFont);
    const int rows = rowsOf(page_);
    int number = 0;
    for (PageControl *control : page_.controls()) {
        const int at = hasPlace(*control) ? number++ : number - 1;
        const int left = margin + at / rows * (labelWidth + boxWidth + margin);
        const int top = margin + at % rows * rowHeight;
        add(*control, {scaled(left), scaled(top), scaled(left + labelWidth + boxWidth),
                       scaled(top + widgetHeight)});
    }
    SetWindowPos(handle(), nullptr, place.left, place.top, place.right - place.left,
                 place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
    return true;
}

HWND PageWindow::addNative(const wchar_t *kind, const std::string &text, DWORD style,
                           const RECT &place, DWORD extended) const {
    const HWND window =
        CreateWindowExW(extended, kind, wide(text).c_str(), WS_CHILD | WS_VISIBLE | style,
                        place.left, place.top, place.right - place.left, place.bottom - place.top,
                        handle(), nullptr, thisModule(), nullptr);
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
    return window;
}

void PageWindow::add(PageControl &control, const RECT &place) {
    RECT field = place;
    HWND label = nullptr;
    const auto addLabel = [&] {
        field.left += scaled(labelWidth);
        // An access key goes to the widget that follows.
        label = addNative(L"STATIC", control.caption(), SS_CENTERIMAGE,
                          {place.left, place.top, field.left, place.bottom});
    };
    HWND native = nullptr;
    std::unique_ptr<Box> box;
    switch (control.kind()) {
    case PageControlKind::TextBox:
        addLabel();
        box = std::make_unique<Box>(*this, static_cast<PageTextBox &>(control));
        if (!box->createIn(handle()))
            return;
        native = box->handle();
        box->place(field, HWND_BOTTOM);
        SendMessageW(native, WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
        break;
    case PageControlKind::CheckBox:
        native = addNative(L"BUTTON", control.caption(), WS_TABSTOP | BS_CHECKBOX, place);
        break;
    case PageControlKind::List:
        addLabel();
        field.bottom += scaled(listHeight);
        native = addNative(L"COMBOBOX", {}, WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST, field);
        break;
    case PageControlKind::Button:
        native = addNative(L"BUTTON", control.caption(), WS_TABSTOP | BS_PUSHBUTTON, place);
        break;
    case PageControlKind::Spinner: {
        field.left = field.right - scaled(spinnerWidth);
        native = addNative(UPDOWN_CLASSW, {}, 0, field);
        // It says which way it goes; the model counts.
        SendMessageW(native, UDM_SETRANGE32, static_cast<WPARAM>(INT_MIN), INT_MAX);
        RECT before = place;
        before.left += scaled(labelWidth);
        before.right = field.left;
        if (!widgets_.empty() && widgets_.back().box)
            widgets_.back().box->place(before, HWND_BOTTOM);
        break;
    }
    }
    // In the order of the tab key.
    if (label != nullptr)
        SetWindowPos(label, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    SetWindowPos(native, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    widgets_.push_back({&control, label, native, std::move(box)});
    mirror(control);
}

void PageWindow::mirror(const PageControl &control) {
    const auto found = std::find_if(widgets_.begin(), widgets_.end(),
                                    [&](const Widget &one) { return one.control == &control; });
    if (found == widgets_.end())
        return;
    const HWND native = found->window;
    const bool wasMirroring = std::exchange(isMirroring_, true);
    switch (control.kind()) {
    case PageControlKind::TextBox: {
        const std::string &text = static_cast<const PageTextBox &>(control).Text();
        if (textOf(native) != text) {
            SetWindowTextW(native, wide(text).c_str());
            SendMessageW(native, EM_SETSEL, text.size(), static_cast<LPARAM>(text.size()));
        }
        break;
    }
    case PageControlKind::CheckBox:
        SendMessageW(
            native, BM_SETCHECK,
            static_cast<const PageCheckBox &>(control).isTicked() ? BST_CHECKED : BST_UNCHECKED, 0);
        break;
    case PageControlKind::List: {
        const auto &list = static_cast<const PageList &>(control);
        SendMessageW(native, CB_RESETCONTENT, 0, 0);
        for (const std::string &item : list.items())
            SendMessageW(native, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(wide(item).c_str()));
        SendMessageW(native, CB_SETCURSEL, static_cast<WPARAM>(list.ListIndex()), 0);
        break;
    }
    case PageControlKind::Button:
    case PageControlKind::Spinner:
        break;
    }
    EnableWindow(native, control.Enabled() ? TRUE : FALSE);
    isMirroring_ = wasMirroring;
}

void PageWindow::giveKeyboard(const PageControl &control) const {
    for (const Widget &one : widgets_) {
        if (one.control != &control)
            continue;
        SetFocus(one.window);
        if (one.box)
            SendMessageW(one.window, EM_SETSEL, 0, -1);
    }
}

void PageWindow::settle() {
    if (const Widget *one = widgetOf(GetFocus()); one != nullptr && one->box)
        commanded(one->window, EN_KILLFOCUS);
}

bool PageWindow::takesKey(MSG &message) {
    if (message.message == WM_KEYDOWN && message.wParam == VK_RETURN) {
        const Widget *one = widgetOf(message.hwnd);
        if (one == nullptr || one->control != &pages_.columns.txtIndex)
            return false;
        goToIndex();
        return true;
    }
    return IsDialogMessageW(handle(), &message) != FALSE;
}

PageWindow::Widget *PageWindow::widgetOf(HWND window) {
    const auto found = std::find_if(widgets_.begin(), widgets_.end(), [&](const Widget &one) {
        return window != nullptr && one.window == window;
    });
    return found == widgets_.end() ? nullptr : &*found;
}

LRESULT PageWindow::message(UINT message, WPARAM first, LPARAM second) {
    if (message == WM_COMMAND && second != 0) {
        quietly([&] { commanded(reinterpret_cast<HWND>(second), HIWORD(first)); });
        return 0;
    }
    if (message == WM_NOTIFY && reinterpret_cast<const NMHDR *>(second)->code == UDN_DELTAPOS) {
        quietly([&] { spun(*reinterpret_cast<const NMUPDOWN *>(second)); });
        return TRUE;
    }
    if (message == WM_ERASEBKGND) {
        RECT all{};
        GetClientRect(handle(), &all);
        FillRect(reinterpret_cast<HDC>(first), &all, GetSysColorBrush(COLOR_3DFACE));
        return TRUE;
    }
    if (message == WM_CTLCOLORSTATIC) {
        SetBkMode(reinterpret_cast<HDC>(first), TRANSPARENT);
        return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_3DFACE));
    }
    return inherited(message, first, second);
}

void PageWindow::commanded(HWND window, UINT notice) {
    Widget *const widget = widgetOf(window);
    if (widget == nullptr || isMirroring_)
        return;
    PageControl &control = *widget->control;
    switch (control.kind()) {
    case PageControlKind::TextBox:
        if (notice == EN_CHANGE)
            page_.typed(static_cast<PageTextBox &>(control), textOf(window));
        else if (notice == EN_KILLFOCUS && &control == &pages_.columns.txtIndex)
            goToIndex();
        else if (notice == EN_KILLFOCUS)
            page_.lostFocus(static_cast<PageTextBox &>(control));
        break;
    case PageControlKind::CheckBox:
        if (notice == BN_CLICKED)
            page_.clicked(static_cast<PageCheckBox &>(control));
        break;
    case PageControlKind::List:
        if (notice == CBN_SELCHANGE)
            page_.chosen(static_cast<PageList &>(control),
                         static_cast<int>(SendMessageW(window, CB_GETCURSEL, 0, 0)));
        break;
    case PageControlKind::Button:
        if (notice == BN_CLICKED)
            pages_.pressed(static_cast<PageButton &>(control));
        break;
    case PageControlKind::Spinner:
        break;
    }
}

void PageWindow::spun(const NMUPDOWN &step) {
    Widget *const widget = widgetOf(step.hdr.hwndFrom);
    if (widget == nullptr || widget->control->kind() != PageControlKind::Spinner)
        return;
    auto &spinner = static_cast<PageSpinner &>(*widget->control);
    const auto box = static_cast<const PageTextBox *>((widget - 1)->control);
    const long typed = std::strtol(box->Text().c_str(), nullptr, 10);
    // The platform's own counter goes down with the arrow that points up.
    page_.spun(spinner, static_cast<int>(
                            std::clamp<long>(typed - step.iDelta, spinner.Min(), spinner.Max())));
}

void PageWindow::goToIndex() {
    pages_.goToIndex();
    pages_.tell();
}

} // namespace tablio::com
