#pragma once

/// The steps of a session as it is recorded: each with what prepares it and what the host heard
/// during it. What a user does in pieces (a key and its character, a button's press and release)
/// becomes one step. It knows how steps are written and nothing of the control.

#include <tablio/testing/driver.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tablio::scenario {

class RecordedSteps {
public:
    /// Begins a step with these words. Steps and answers that have to stand before it come first.
    void begin(std::string words);
    void prepare(std::string line);
    /// The host has heard an event, as a part of the last step.
    void heard(std::string event);

    /// A key went down. What it types may follow.
    void keyDown(KeyCode key, ShiftState shift);
    void keyPress(char32_t character);
    /// A whole text arrived. It belongs to a composition where one has just begun.
    void entered(std::string_view text);
    void composition() { begin("compose \"\"", Kind::Composition); }
    /// A button went down at a place, and came up so many twips further to the right.
    void pressed(std::string words, std::string drag);
    void released(Twips distance);
    void doubleClicked();

    [[nodiscard]] bool isEmpty() const noexcept { return steps_.empty(); }
    /// With events, each step raises exactly those that were heard.
    [[nodiscard]] std::string text(bool withEvents) const;

private:
    enum class Kind { Other, Key, Typed, Composition, Press, Click };
    struct Step {
        Kind kind = Kind::Other;
        std::string words;
        std::vector<std::string> before;
        std::vector<std::string> events;
        /// Of a key: the stroke. Of typed characters: all of them.
        KeyStroke stroke;
        std::string typed;
        /// Of those: where what the last of them led to begins.
        std::size_t lastTyped = 0;
        std::size_t lastEvents = 0;
        /// Of a press: what it is when the mouse moves before the release.
        std::string drag;
    };

    void begin(std::string words, Kind kind);
    [[nodiscard]] Step *last(Kind kind) noexcept;
    void takeTyped(char32_t character);

    std::vector<Step> steps_;
};

} // namespace tablio::scenario
