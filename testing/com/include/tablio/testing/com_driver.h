#pragma once

/// Plays scenarios against the registered Windows control in a container's window: keys and clicks
/// are the system's own input, members go through IDispatch, events come through the connection
/// point. It needs the control's code in its own program, whose inside scenarios look into.

#include <tablio/testing/driver.h>

#include <windows.h>

#include <memory>
#include <optional>

namespace tablio::scenario {

/// It needs a desktop on which its window can be in front. After each step that is not played
/// inside a handler it compares the native windows with the control; a difference fails the step.
class ComDriver final : public Driver {
public:
    ComDriver();
    ~ComDriver() override;
    ComDriver(const ComDriver &) = delete;
    ComDriver &operator=(const ComDriver &) = delete;

    void create(Twips width, Twips height) override;
    void destroy() override;
    [[nodiscard]] Tablio *core() override;
    void show() override;
    void resize(Twips width, Twips height) override;
    void enterFocus() override;
    void leaveFocus() override;

    void setHost(HostEvents *host) override;
    Value callMember(std::string_view name, const Values &arguments) override;
    void setMember(std::string_view name, const Values &index, const Value &value) override;
    [[nodiscard]] Value readMember(std::string_view name, const Values &index) override;
    /// The container gets a language with these signs; throws Error where the system knows none.
    void setLocale(const NumberFormat &locale) override;
    void setClipboard(std::string_view text) override;

    void strike(const KeyStroke &stroke) override;
    void compose(std::string_view text) override;
    void enterText(std::string_view text) override;
    void settle(WidgetId editor, std::string_view text, int caret) override;

    void pressMouse(MouseButton button, Twips x, Twips y) override;
    void moveMouse(Twips x, Twips y) override;
    void releaseMouse(MouseButton button, Twips x, Twips y) override;
    void doubleClick(Twips x, Twips y) override;
    void scrollTo(int topRow, int leftCol) override;
    void pushButton(WidgetId button) override;

    void chooseMenuEntry(MenuEntry entry) override;
    void chooseItem(int index) override;
    void pickDay(const Date &day) override;

private:
    struct Form;

    /// What the host or the user does, and all that follows from it. Throws what handlers threw
    /// meanwhile. When it is not done inside a handler, the native windows are compared with the
    /// control after it.
    template <typename Action> auto deliver(Action action);
    [[nodiscard]] HWND part(const wchar_t *kind, const wchar_t *text) const;
    [[nodiscard]] POINT onScreen(Twips x, Twips y) const;

    std::unique_ptr<Form> form_;
    int depth_ = 0;
    ShiftState held_ = Shift::None;
};

} // namespace tablio::scenario
