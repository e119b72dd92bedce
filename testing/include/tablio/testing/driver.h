#pragma once

/// What a scenario needs of the face it plays against: a control that can be made and destroyed, a
/// user's hands and a host's calls. What a driver does not override goes straight into the core, as
/// a front end would send it; a front end's driver sends native events to its own widget, and asks
/// and tells it through its own properties, methods and events.

#include <tablio/testing/recording_face.h>

#include <tablio/dispatch.h>
#include <tablio/tablio.h>

#include <optional>
#include <string>
#include <string_view>

namespace tablio::scenario {

/// One key going down and up again, and the character that it types (0 for none), as a user with
/// an American keyboard produces them: "a" is key 65 and character 'a', "-" is key 189.
struct KeyStroke {
    KeyCode key = 0;
    ShiftState shift = Shift::None;
    char32_t character = 0;
};

/// Positions are twips from the control's top left corner. Input functions do what the user's
/// action does and return when the control has dealt with it, pending events included; what a
/// host handler throws comes out of them. Every function may be called from inside a handler.
class Driver {
public:
    virtual ~Driver() = default;

    /// The control's face. It lies around the front end's own one, if there is one.
    RecordingFace face;

    // Lifecycle.
    /// A fresh control with this inner size in place of the old one, its InitProperties done. It is
    /// not shown and has no host, and the keyboard is elsewhere in the host's form. Its face is
    /// `face`, which has forgotten all of the scenario before.
    virtual void create(Twips width, Twips height) = 0;
    /// Destroys the control, also from inside one of its handlers.
    virtual void destroy() = 0;
    /// Null while there is no control.
    [[nodiscard]] virtual Tablio *core() = 0;
    /// The container shows the control (for the first time, or again).
    virtual void show() { core()->Show(); }
    virtual void resize(Twips width, Twips height) { input().resized(width, height); }
    /// The user brings the keyboard into the control, or to another widget of the host's form.
    virtual void enterFocus() { input().focusEntered(); }
    virtual void leaveFocus() { input().focusLeft(); }

    /// The host that setHost() gets, for a face whose events come by number.
    EventSink *events = nullptr;

    // The host. Names and types are those of the control's member table; `CellTag` with a row and a
    // column is the text that the host keeps with that cell. Optional arguments that a scenario
    // leaves out are left to the face. What the control throws passes through.
    virtual void setHost(HostEvents *host) { core()->setHost(host); }
    virtual Value callMember(std::string_view name, const Values &arguments);
    virtual void setMember(std::string_view name, const Values &index, const Value &value);
    [[nodiscard]] virtual Value readMember(std::string_view name, const Values &index);

    // The platform. Whoever overrides these makes the front end's own face answer (`face`).
    virtual void setLocale(const NumberFormat &locale) { face.locale = locale; }
    virtual void setRightToLeft(bool rightToLeft) { input().setRightToLeft(rightToLeft); }
    virtual void setClipboard(std::string_view text) { face.clipboard = text; }

    // Keyboard. Here and below a handler may destroy the control between one call and the next.
    virtual void strike(const KeyStroke &stroke) {
        if (input().keyDown(stroke.key, stroke.shift) == Dealt::No && core() != nullptr &&
            stroke.character != 0)
            input().keyPress(stroke.character);
    }
    /// An input method composes this text and commits it.
    virtual void compose(std::string_view text) {
        if (input().beginComposition() == Dealt::Yes && core() != nullptr)
            input().typeText(text);
    }
    /// Text that arrives whole, without keys.
    virtual void enterText(std::string_view text) { input().typeText(text); }
    /// The native box has this text and caret after editing by itself (a drop, say).
    virtual void settle(WidgetId /*editor*/, std::string_view text, int caret) {
        input().textSettled(openEdit(), text, caret, caret);
    }

    // Mouse.
    virtual void pressMouse(MouseButton button, Twips x, Twips y) {
        input().mouseDown(button, x, y);
    }
    virtual void moveMouse(Twips x, Twips y) { input().mouseMove(x, y); }
    virtual void releaseMouse(MouseButton button, Twips x, Twips y) {
        input().mouseUp(button, x, y);
    }
    /// The second press of a double click; the first press and its release came before.
    virtual void doubleClick(Twips x, Twips y) { input().doubleClick(x, y); }
    /// By the wheel or the scroll bars.
    virtual void scrollTo(int topRow, int leftCol) { input().scrollTo(topRow, leftCol); }
    /// One of the control's own buttons.
    virtual void pushButton(WidgetId button) { input().buttonPressed(button); }

    // Choices: an entry of the menu that has popped up, an item of the combo's list by the mouse, a
    // day of the calendar that is open.
    virtual void chooseMenuEntry(MenuEntry entry) { input().menuChosen(entry); }
    virtual void chooseItem(int index) {
        const EditNumber edit = openEdit();
        input().comboDropped(edit, true);
        if (core() != nullptr)
            input().comboItemChosen(edit, index);
    }
    /// The control has asked whether to go on.
    virtual void answerQuestion(bool yes) { input().questionAnswered(yes); }
    virtual void pickDay(const Date &day) { input().calendarPicked(openEdit(), day); }

private:
    Input &input() { return core()->input(); }
    /// The edit that the face shows, 0 for none.
    EditNumber openEdit() {
        const std::optional<ScreenEditor> editor = core()->screen().editor();
        return editor ? editor->edit : 0;
    }
};

/// Takes a theme's looks off a new control: scenarios start from the control's own defaults.
void makeBare(Tablio &core);

} // namespace tablio::scenario
