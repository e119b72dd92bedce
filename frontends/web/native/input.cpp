/// What the user does, as the page tells it: `Input` by numbers, since all of it is called alike.

#include "grid.h"
#include "slots.h"

#include <array>
#include <optional>

namespace tablio::web {

namespace {

struct Told {
    int a;
    int b;
    int c;
    std::string_view text;

    [[nodiscard]] EditNumber edit() const { return static_cast<EditNumber>(a); }
    [[nodiscard]] Date dateInB() const { return {b / 10000, b / 100 % 100, b % 100}; }
    [[nodiscard]] KeyCode key() const { return static_cast<KeyCode>(a); }
    [[nodiscard]] ShiftState shift() const { return static_cast<ShiftState>(b); }
    [[nodiscard]] MouseButton button() const { return static_cast<MouseButton>(a); }
};

int dealt(Dealt answer) { return answer == Dealt::Yes ? 1 : 0; }

/// Where the reply is with the text; 0 for none.
int replied(const std::optional<std::string> &text) {
    return text ? static_cast<int>(
                      reinterpret_cast<std::intptr_t>(ReplyWriter().addText(*text).done()))
                : 0;
}

using Call = int (*)(Input &, const Told &);

/// In the order of `Tell` in `element/native.ts`.
constexpr std::array<Call, 29> calls{
    [](Input &i, const Told &t) { return dealt(i.keyDown(t.key(), t.shift())); },
    [](Input &i, const Told &t) { return dealt(i.keyPress(static_cast<char32_t>(t.a))); },
    [](Input &i, const Told &t) { return i.typeText(t.text), 0; },
    [](Input &i, const Told &) { return dealt(i.beginComposition()); },
    [](Input &i, const Told &t) { return i.mouseDown(t.button(), t.b, t.c), 0; },
    [](Input &i, const Told &t) { return i.mouseMove(t.a, t.b), 0; },
    [](Input &i, const Told &t) { return i.mouseUp(t.button(), t.b, t.c), 0; },
    [](Input &i, const Told &t) { return i.doubleClick(t.a, t.b), 0; },
    [](Input &i, const Told &t) { return int{i.isColumnEdge(t.a, t.b)}; },
    [](Input &i, const Told &t) { return i.scrollTo(t.a, t.b), 0; },
    [](Input &i, const Told &t) {
        return dealt(i.wheelTurned(static_cast<WheelUnit>(t.a), t.b, t.c));
    },
    [](Input &i, const Told &) { return i.focusEntered(), 0; },
    [](Input &i, const Told &) { return i.focusLeft(), 0; },
    [](Input &i, const Told &) { return i.endEdit(), 0; },
    [](Input &i, const Told &) { return int{i.hasKeyboard()}; },
    [](Input &i, const Told &t) { return int{i.wantsKey(t.key(), t.shift(), t.c != 0)}; },
    [](Input &i, const Told &t) { return dealt(i.paste(t.text)); },
    [](Input &i, const Told &) { return replied(i.copy()); },
    [](Input &i, const Told &) { return replied(i.cut()); },
    [](Input &i, const Told &t) { return i.buttonPressed(static_cast<WidgetId>(t.a)), 0; },
    [](Input &i, const Told &t) { return i.textSettled(t.edit(), t.text, t.b, t.c), 0; },
    [](Input &i, const Told &t) { return i.comboDropped(t.edit(), t.b != 0), 0; },
    [](Input &i, const Told &t) { return i.comboItemChosen(t.edit(), t.b), 0; },
    [](Input &i, const Told &t) { return i.calendarMoved(t.edit(), t.dateInB()), 0; },
    [](Input &i, const Told &t) { return i.calendarPicked(t.edit(), t.dateInB()), 0; },
    [](Input &i, const Told &t) { return i.calendarSized(t.a, t.b), 0; },
    [](Input &i, const Told &t) { return i.menuChosen(static_cast<MenuEntry>(t.a)), 0; },
    [](Input &i, const Told &t) { return i.questionAnswered(t.a != 0), 0; },
    [](Input &i, const Told &) { return i.appeared(), 0; },
};

} // namespace

/// The text is so much of the room.
[[clang::export_name("tell")]] int tell(int number, int what, int a, int b, int c,
                                        std::size_t length) {
    return with(number, [&](Grid &grid) {
        // Copied, because handlers use the room, too.
        const std::string text(roomFor(0), length);
        return calls.at(static_cast<std::size_t>(what))(grid.table().input(), {a, b, c, text});
    });
}

} // namespace tablio::web
