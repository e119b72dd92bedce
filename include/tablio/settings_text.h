#pragma once

/// The settings of one control as the text that a form file keeps. Front ends load and store them
/// by it, so that nothing of a form is lost on its way through a program that understands less of
/// it: what cannot be read, and what a later version has written, goes back as it came.

#include <tablio/text_bag.h>

#include <string>
#include <string_view>

namespace tablio {

class Tablio;

class SettingsText {
public:
    /// The control must outlive this.
    explicit SettingsText(Tablio &control) : control_(control) {}

    /// Makes the control what the text says (`Tablio::loadSettings`). A text that cannot be read
    /// changes nothing and is kept.
    void load(std::string_view text);
    /// What text() makes of the control as it is now; and what could not be read, to the letter, as
    /// long as nobody has given the control other settings since.
    [[nodiscard]] std::string text() const;
    /// Why what text() answers cannot be read, with its line; empty where it can.
    [[nodiscard]] std::string problem() const;

private:
    [[nodiscard]] std::string written() const;
    [[nodiscard]] bool isKept() const { return !problem_.empty() && written() == standing_; }

    Tablio &control_;
    /// What was loaded last, for the keys that nobody here knows.
    TextBag loaded_;
    /// What could not be read, why, and what the control was then.
    std::string unread_;
    std::string problem_;
    std::string standing_;
};

} // namespace tablio
