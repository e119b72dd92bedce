/// What the user does, as the page tells it: `Input` by numbers, since all of it is called alike.

#include "grid.h"

#include <array>
#include <optional>

namespace tablio::web {

namespace {

int dealt(Dealt answer) { return answer == Dealt::Yes ? 1 : 0; }
KeyCode key(int code) { return static_cast<KeyCode>(code); }
EditNumber edit(int number) { return static_cast<EditNumber>(number); }
MouseButton button(int number) { return static_cast<MouseButton>(number); }
Date date(int number) { return {number / 10000, number / 100 % 100, number % 100}; }
/// Where the message is with the text; 0 for none.
int clipped(const std::optional<std::string> &text) {
    // NOLINTNEXTLINE: addresses have 32 bits here.
    return text ? static_cast<int>(reinterpret_cast<std::intptr_t>(Message().add(*text).done()))
                : 0;
}

using Text = std::string_view;
using Call = int (*)(Input &, int, int, int, Text);

/// In the order of `Tell` in `element/native.ts`.
constexpr std::array<Call, 28> calls{
    [](Input &i, int a, int b, int, Text) { return dealt(i.keyDown(key(a), key(b))); },
    [](Input &i, int a, int, int, Text) { return dealt(i.keyPress(static_cast<char32_t>(a))); },
    [](Input &i, int, int, int, Text t) { return i.typeText(t), 0; },
    [](Input &i, int, int, int, Text) { return dealt(i.beginComposition()); },
    [](Input &i, int a, int b, int c, Text) { return i.mouseDown(button(a), b, c), 0; },
    [](Input &i, int a, int b, int, Text) { return i.mouseMove(a, b), 0; },
    [](Input &i, int a, int b, int c, Text) { return i.mouseUp(button(a), b, c), 0; },
    [](Input &i, int a, int b, int, Text) { return i.doubleClick(a, b), 0; },
    [](Input &i, int a, int b, int, Text) { return int{i.isColumnEdge(a, b)}; },
    [](Input &i, int a, int b, int, Text) { return i.scrollTo(a, b), 0; },
    [](Input &i, int, int, int, Text) { return i.focusEntered(), 0; },
    [](Input &i, int, int, int, Text) { return i.focusLeft(), 0; },
    [](Input &i, int, int, int, Text) { return i.endEdit(), 0; },
    [](Input &i, int, int, int, Text) { return int{i.hasKeyboard()}; },
    [](Input &i, int a, int b, int c, Text) { return int{i.wantsKey(key(a), key(b), c != 0)}; },
    [](Input &i, int, int, int, Text t) { return dealt(i.paste(t)); },
    [](Input &i, int, int, int, Text) { return clipped(i.copy()); },
    [](Input &i, int, int, int, Text) { return clipped(i.cut()); },
    [](Input &i, int a, int, int, Text) { return i.buttonPressed(static_cast<WidgetId>(a)), 0; },
    [](Input &i, int a, int b, int c, Text t) { return i.textSettled(edit(a), t, b, c), 0; },
    [](Input &i, int a, int b, int, Text) { return i.comboDropped(edit(a), b != 0), 0; },
    [](Input &i, int a, int b, int, Text) { return i.comboItemChosen(edit(a), b), 0; },
    [](Input &i, int a, int b, int, Text) { return i.calendarTurned(edit(a), b), 0; },
    [](Input &i, int a, int b, int, Text) { return i.calendarPicked(edit(a), date(b)), 0; },
    [](Input &i, int a, int b, int, Text) { return i.calendarSized(a, b), 0; },
    [](Input &i, int a, int, int, Text) { return i.menuChosen(static_cast<MenuEntry>(a)), 0; },
    [](Input &i, int a, int, int, Text) { return i.questionAnswered(a != 0), 0; },
    [](Input &i, int, int, int, Text) { return i.appeared(), 0; },
};

} // namespace

/// The text is in the room, where there is one.
[[clang::export_name("tell")]] int tell(int number, int what, int a, int b, int c,
                                        std::size_t count) {
    return with(number, [&](Grid &grid) {
        const std::string text = count == 0 ? std::string() : Given(count).text();
        return calls.at(static_cast<std::size_t>(what))(grid.table().input(), a, b, c, text);
    });
}

} // namespace tablio::web
