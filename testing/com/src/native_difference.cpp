#include "native_difference.h"

#include "object/text.h"
#include "system_input.h"

#include <commctrl.h>

namespace tablio::scenario {

namespace {

bool isSeen(HWND window) { return window != nullptr && IsWindowVisible(window) != FALSE; }

} // namespace

std::string nativeDifference(const com::Window &window) {
    const Screen &screen = window.screen();
    const HWND grid = window.handle();
    std::string differences;
    const auto compare = [&](const char *what, const auto &control, const auto &native) {
        const auto text = [](const auto &value) {
            if constexpr (std::is_arithmetic_v<std::decay_t<decltype(value)>>)
                return std::to_string(value);
            else
                return std::string(value);
        };
        if (text(control) != text(native))
            differences += std::string(what) + ": the control has " + text(control) +
                           ", the native window " + text(native) + "; ";
    };
    const HWND box = childOf(grid, L"EDIT");
    RECT frame;
    GetClientRect(GetParent(box), &frame);
    const std::optional<ScreenEditor> editor = screen.editor();
    compare("an editor", editor.has_value(), frame.right > 0);
    if (editor) {
        std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(box)) + 1, L'\0');
        GetWindowTextW(box, text.data(), static_cast<int>(text.size()));
        text.pop_back();
        compare("the text", editor->text, com::narrow(text));
        const auto selection = static_cast<DWORD>(SendMessageW(box, EM_GETSEL, 0, 0));
        const auto [from, to] = std::minmax(editor->anchor, editor->caret);
        compare("the selection's start", from, static_cast<int>(LOWORD(selection)));
        compare("the selection's end", to, static_cast<int>(HIWORD(selection)));
    }
    const auto isShown = [&](WidgetId id) { return screen.widget(id).isVisible; };
    compare("the calendar", isShown(WidgetId::mvCalender), isSeen(childOf(grid, MONTHCAL_CLASSW)));
    if (isShown(WidgetId::mvCalender)) {
        SYSTEMTIME day{};
        SendMessageW(childOf(grid, MONTHCAL_CLASSW), MCM_GETCURSEL, 0,
                     reinterpret_cast<LPARAM>(&day));
        compare("the day", screen.calendarDay().dayNumber(),
                Date{day.wYear, day.wMonth, day.wDay}.dayNumber());
    }
    compare("the lookup button", isShown(WidgetId::cmdLookup),
            isSeen(childOf(grid, L"TablioWindow", L"Look up")));
    compare("the calendar button", isShown(WidgetId::cmdCalender),
            isSeen(childOf(grid, L"TablioWindow", L"Calendar")));
    compare("the combo", isShown(WidgetId::cboEdit),
            isSeen(childOf(grid, L"TablioWindow", L"Choices")));
    compare("the keyboard", screen.focusOwner().has_value(), GetFocus() == box);
    return differences;
}

} // namespace tablio::scenario
