#pragma once

/// Plays scenarios against the core alone: keys and mouse actions go straight into `Input`, as a
/// front end would send them, and nothing is shown.

#include "support/scenario_driver.h"
#include "support/scenario_face.h"

#include <optional>

namespace tablio::scenario {

class CoreDriver final : public ScenarioDriver {
public:
    void create(RecordingFace &face, Twips width, Twips height) override {
        tablio_.emplace();
        tablio_->setFace(&face);
        tablio_->InitProperties();
        input().resized(width, height);
    }
    void destroy() override { tablio_.reset(); }
    [[nodiscard]] Tablio *core() override { return tablio_ ? &*tablio_ : nullptr; }
    void show() override { tablio_->Show(); }
    void resize(Twips width, Twips height) override { input().resized(width, height); }
    void enterFocus() override { input().focusEntered(); }
    void leaveFocus() override { input().focusLeft(); }

    // In all of these a handler may destroy the control between one call and the next.
    void strike(const KeyStroke &stroke) override {
        if (input().keyDown(stroke.key, stroke.shift) == Dealt::No && tablio_ &&
            stroke.character != 0)
            input().keyPress(stroke.character);
    }
    void compose(std::string_view text) override {
        if (input().beginComposition() == Dealt::Yes && tablio_)
            input().typeText(text);
    }
    void enterText(std::string_view text) override { input().typeText(text); }
    void settle(WidgetId editor, std::string_view text, int caret) override {
        input().textSettled(editor, text, caret, 0);
    }

    void pressMouse(MouseButton button, Twips x, Twips y) override {
        input().mouseDown(button, x, y);
    }
    void moveMouse(Twips x, Twips y) override { input().mouseMove(x, y); }
    void releaseMouse(MouseButton button, Twips x, Twips y) override {
        input().mouseUp(button, x, y);
    }
    void doubleClick(Twips x, Twips y) override { input().doubleClick(x, y); }
    void scrollTo(int topRow, int leftCol) override { input().scrollTo(topRow, leftCol); }
    void pushButton(WidgetId button) override { input().buttonPressed(button); }

    void chooseMenuEntry(MenuEntry entry) override { input().menuChosen(entry); }
    void chooseItem(int index) override {
        input().comboDropped(true);
        if (tablio_)
            input().comboItemChosen(index);
    }
    void pickDay(const Date &day) override { input().calendarPicked(day); }

private:
    Input &input() { return tablio_->input(); }

    std::optional<Tablio> tablio_;
};

} // namespace tablio::scenario
