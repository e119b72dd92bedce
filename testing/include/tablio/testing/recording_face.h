#pragma once

/// A face that writes down what the control tells it and answers a scenario's locale, date and
/// clipboard. Alone it is a headless face; given another face it lies around that one, so that a
/// front end's own face goes on showing everything.

#include <tablio/face.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tablio::scenario {

class RecordingFace : public Face {
public:
    /// The front end's own face, or null. It must live until it is replaced.
    void wrap(Face *inner) { inner_ = inner; }

    // What was told, since the scenario last asked.
    std::vector<std::string> notices;
    std::vector<std::string> warnings;
    std::optional<std::pair<Twips, Twips>> popUp;
    std::optional<bool> hostKeyPreview;

    // What is answered.
    NumberFormat locale;
    Date date{2024, 5, 17};
    /// A driver with a real clipboard keeps this in step, or overrides the two functions.
    std::string clipboard;

    void widgetChanged(WidgetId widget) override {
        if (inner_ != nullptr)
            inner_->widgetChanged(widget);
    }
    void focusChanged(WidgetId owner) override {
        if (inner_ != nullptr)
            inner_->focusChanged(owner);
    }
    void areaChanged(const Rect &area) override {
        if (inner_ != nullptr)
            inner_->areaChanged(area);
    }
    void scrolled() override {
        if (inner_ != nullptr)
            inner_->scrolled();
    }
    void popUpMenu(Twips x, Twips y) override {
        popUp = {x, y};
        if (inner_ != nullptr)
            inner_->popUpMenu(x, y);
    }
    void showWarning(std::string_view title, std::string_view text) override {
        warnings.push_back(std::string(title) + ": " + std::string(text));
        if (inner_ != nullptr)
            inner_->showWarning(title, text);
    }
    [[nodiscard]] std::string clipboardText() override { return clipboard; }
    void setClipboardText(std::string_view text) override {
        clipboard = text;
        if (inner_ != nullptr)
            inner_->setClipboardText(text);
    }
    [[nodiscard]] NumberFormat numberFormat() const override { return locale; }
    [[nodiscard]] char32_t toUpper(char32_t character) const override {
        return inner_ != nullptr ? inner_->toUpper(character) : Face::toUpper(character);
    }
    [[nodiscard]] char32_t toLower(char32_t character) const override {
        return inner_ != nullptr ? inner_->toLower(character) : Face::toLower(character);
    }
    [[nodiscard]] Date today() const override { return date; }
    void letPendingEventsRun() override {
        if (inner_ != nullptr)
            inner_->letPendingEventsRun();
    }
    void propertyChanged(std::string_view name) override {
        notices.emplace_back(name);
        if (inner_ != nullptr)
            inner_->propertyChanged(name);
    }
    void setHostKeyPreview(bool preview) override {
        hostKeyPreview = preview;
        if (inner_ != nullptr)
            inner_->setHostKeyPreview(preview);
    }

private:
    Face *inner_ = nullptr;
};

} // namespace tablio::scenario
