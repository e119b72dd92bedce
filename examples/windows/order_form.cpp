/// `order_form [FILE]`: a form with the registered control, a field and a button that saves. The
/// control is made by its name; a program that brings the control file along needs no registration.

#include "container.h"

#include <tablio_com.h>

#include <olectl.h>

#include <fstream>
#include <initializer_list>
#include <string>
#include <vector>

namespace member = TablioLib::member;

namespace {

constexpr int margin = 8;
constexpr int lineHeight = 24;
constexpr WORD saveButton = 1;
constexpr int buttonWidth = 80;
constexpr int usualDpi = 96;
constexpr LONG columnCount = 5;

/// The grid by the numbers of its members, as a compiled host calls it.
class Grid {
public:
    explicit Grid(IUnknown *control) : members_(interfaceOf<IDispatch>(control)) {}

    /// Calls or reads a member, or sets a property to the last of the values.
    std::wstring call(DISPID number, std::initializer_list<VARIANT> values = {},
                      WORD how = DISPATCH_METHOD | DISPATCH_PROPERTYGET) {
        std::vector<VARIANT> reversed(std::rbegin(values), std::rend(values));
        DISPID put = DISPID_PROPERTYPUT;
        const bool puts = how == DISPATCH_PROPERTYPUT;
        DISPPARAMS all{reversed.data(), puts ? &put : nullptr, static_cast<UINT>(reversed.size()),
                       puts ? 1U : 0U};
        OwnedVariant result;
        members_->Invoke(number, IID_NULL, LOCALE_USER_DEFAULT, how, &all, &result, nullptr,
                         nullptr);
        const bool isText = SUCCEEDED(VariantChangeType(&result, &result, 0, VT_BSTR));
        return isText && V_BSTR(&result) != nullptr ? V_BSTR(&result) : L"";
    }
    void set(DISPID number, std::initializer_list<VARIANT> values) {
        call(number, values, DISPATCH_PROPERTYPUT);
    }

private:
    Owned<IDispatch> members_;
};

VARIANT number(LONG value) {
    VARIANT variant;
    VariantInit(&variant);
    V_VT(&variant) = VT_I4;
    V_I4(&variant) = value;
    return variant;
}

/// The text must live until the call is over.
VARIANT text(const OwnedVariant &owned) { return owned; }

struct Words : OwnedVariant {
    explicit Words(const wchar_t *words) {
        V_VT(this) = VT_BSTR;
        V_BSTR(this) = SysAllocString(words);
    }
};

void setUp(Grid &grid) {
    struct Column {
        const wchar_t *header;
        LONG width;
        LONG type;
        LONG alignment;
        const wchar_t *format;
    };
    const Column columns[] = {{L"Article", 2400, TablioLib::ColumnString, 1, L""},
                              {L"Unit", 1200, TablioLib::ColumnCombo, 1, L""},
                              {L"Quantity", 1200, TablioLib::ColumnInteger, 7, L"#,##0"},
                              {L"Price", 1500, TablioLib::ColumnDecimal, 7, L"#,##0.00"},
                              {L"Due", 1500, TablioLib::ColumnDate, 1, L"##/##/####"}};
    grid.set(member::Rows, {number(30)});
    grid.set(member::Cols, {number(columnCount)});
    LONG index = 0;
    for (const Column &column : columns) {
        const Words header(column.header);
        const Words format(column.format);
        grid.call(member::SetColProperty,
                  {number(index++), text(header), number(column.width),
                   number(TablioLib::ColumnInput), number(column.type), number(column.alignment),
                   number(column.alignment), number(20), text(format)},
                  DISPATCH_METHOD);
    }
    for (const wchar_t *unit : {L"Bag", L"Bottle", L"Piece"})
        grid.call(member::ComboAddItem, {text(Words(unit))}, DISPATCH_METHOD);
}

/// What the operator has entered, a line a row.
void save(Grid &grid, const std::string &file) {
    // What is being typed is not in its cell yet.
    grid.call(member::Commit);
    std::wofstream out(file);
    const LONG last = std::stol(grid.call(member::DataCount));
    for (LONG row = 1; row <= last; ++row) {
        for (LONG col = 0; col < columnCount; ++col)
            out << (col > 0 ? L";" : L"")
                << grid.call(member::TextMatrix, {number(row), number(col)});
        out << L"\n";
    }
}

struct OrderForm {
    HWND window = nullptr;
    HWND customer = nullptr;
    HWND button = nullptr;
    HWND lastFocus = nullptr;
    Container *container = nullptr;
    Grid *grid = nullptr;
    std::string file;

    void arrange() const {
        RECT room;
        GetClientRect(window, &room);
        const HDC device = GetDC(window);
        const auto scaled = [dpi = GetDeviceCaps(device, LOGPIXELSX)](int pixels) {
            return MulDiv(pixels, dpi, usualDpi);
        };
        ReleaseDC(window, device);
        const int top = 2 * scaled(margin) + scaled(lineHeight);
        const int left = room.right - scaled(margin) - scaled(buttonWidth);
        MoveWindow(customer, scaled(margin), scaled(margin), left - 2 * scaled(margin),
                   scaled(lineHeight), TRUE);
        MoveWindow(button, left, scaled(margin), scaled(buttonWidth), scaled(lineHeight), TRUE);
        if (container != nullptr)
            container->move({0, top, room.right, room.bottom});
    }
};

LRESULT CALLBACK formMessage(HWND window, UINT message, WPARAM first, LPARAM second) {
    auto *form = reinterpret_cast<OrderForm *>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (form == nullptr)
        return DefWindowProcW(window, message, first, second);
    switch (message) {
    case WM_SIZE:
        form->arrange();
        return 0;
    case WM_ACTIVATE:
        // Comes back to where the keyboard was.
        if (LOWORD(first) == WA_INACTIVE)
            form->lastFocus = GetFocus();
        else
            SetFocus(form->lastFocus);
        return 0;
    case WM_COMMAND:
        if (HIWORD(first) == EN_SETFOCUS || HIWORD(first) == BN_SETFOCUS)
            form->container->leave();
        else if (LOWORD(first) == saveButton && HIWORD(first) == BN_CLICKED)
            save(*form->grid, form->file);
        return 0;
    case WM_DESTROY:
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcW(window, message, first, second);
    }
}

Owned<IUnknown> newControl() {
    void *control = nullptr;
    CoCreateInstance(TablioLib::CLSID_Tablio, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                     &control);
    return Owned<IUnknown>(static_cast<IUnknown *>(control));
}

void run(const std::string &file) {
    const Owned<IUnknown> control = newControl();
    if (!control) {
        MessageBoxW(nullptr, L"The control Tablio is not registered here.", L"Order form", MB_OK);
        return;
    }
    OrderForm form;
    form.file = file;
    WNDCLASSW kind{};
    kind.lpfnWndProc = formMessage;
    kind.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    kind.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    kind.lpszClassName = L"TablioOrderForm";
    RegisterClassW(&kind);
    form.window = CreateWindowExW(WS_EX_CONTROLPARENT, kind.lpszClassName, L"Order form",
                                  WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT, 0, 760, 480,
                                  nullptr, nullptr, nullptr, nullptr);
    const auto child = [&](const wchar_t *what, const wchar_t *words, DWORD style, WORD id) {
        return CreateWindowExW(0, what, words, WS_CHILD | WS_VISIBLE | WS_TABSTOP | style, 0, 0, 0,
                               0, form.window, reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)),
                               nullptr, nullptr);
    };
    form.customer = child(L"EDIT", L"", WS_BORDER | ES_AUTOHSCROLL, saveButton + 1);
    form.button = child(L"BUTTON", L"&Save", BS_NOTIFY, saveButton);
    Container container(form.window);
    Grid grid(control.get());
    form.container = &container;
    form.grid = &grid;
    SetWindowLongPtrW(form.window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&form));
    container.hold(control.get());
    interfaceOf<IPersistStreamInit>(control.get())->InitNew();
    setUp(grid);
    ShowWindow(form.window, SW_SHOW);
    container.show({0, 0, 1, 1});
    form.arrange();
    container.enter();
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (container.translate(message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    SetWindowLongPtrW(form.window, GWLP_USERDATA, 0);
}

} // namespace

int main(int argc, char **argv) {
    SetProcessDPIAware();
    if (FAILED(OleInitialize(nullptr)))
        return 1;
    run(argc > 1 ? argv[1] : "order.txt");
    OleUninitialize();
    return 0;
}
