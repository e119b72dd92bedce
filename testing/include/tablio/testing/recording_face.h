#pragma once

/// A face that writes down what the control tells it and answers a scenario's locale, date and
/// clipboard. Alone it is a headless face; given another face it lies around that one, so that a
/// front end's own face goes on showing everything.

#include <tablio/face.h>
#include <tablio/members.h>

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
    /// False when the driver writes down itself what its face's host hears.
    bool writesNotices = true;
    std::vector<std::string> warnings;
    std::optional<std::pair<Twips, Twips>> popUp;
    std::optional<bool> hostKeyPreview;

    // What is answered; what holds nothing is asked of the front end's own face.
    std::optional<NumberFormat> locale = NumberFormat();
    std::optional<Date> date = Date{2024, 5, 17};
    std::optional<std::string> clipboard = "";

    void shown() override { inner().shown(); }
    void takeFocus() override { inner().takeFocus(); }
    void areaChanged(const Rect &area) override { inner().areaChanged(area); }
    void scrolled() override { inner().scrolled(); }
    void popUpMenu(Twips x, Twips y) override {
        popUp = {x, y};
        inner().popUpMenu(x, y);
    }
    void showWarning(std::string_view title, std::string_view text) override {
        warnings.push_back(std::string(title) + ": " + std::string(text));
        inner().showWarning(title, text);
    }
    [[nodiscard]] std::string clipboardText() override {
        return clipboard ? *clipboard : inner().clipboardText();
    }
    void setClipboardText(std::string_view text) override {
        if (clipboard)
            clipboard = text;
        inner().setClipboardText(text);
    }
    [[nodiscard]] NumberFormat numberFormat() const override {
        return locale ? *locale : inner().numberFormat();
    }
    [[nodiscard]] char32_t toUpper(char32_t character) const override {
        return inner().toUpper(character);
    }
    [[nodiscard]] char32_t toLower(char32_t character) const override {
        return inner().toLower(character);
    }
    [[nodiscard]] Date today() const override { return date ? *date : inner().today(); }
    void letPendingEventsRun() override { inner().letPendingEventsRun(); }
    void propertyChanged(MemberNumber number) override {
        if (writesNotices)
            notices.emplace_back(number == Number::All ? "All" : findMember(number).name);
        inner().propertyChanged(number);
    }
    void setHostKeyPreview(bool preview) override {
        hostKeyPreview = preview;
        inner().setHostKeyPreview(preview);
    }

private:
    [[nodiscard]] Face &inner() { return inner_ != nullptr ? *inner_ : none_; }
    [[nodiscard]] const Face &inner() const { return inner_ != nullptr ? *inner_ : none_; }

    Face *inner_ = nullptr;
    Face none_;
};

} // namespace tablio::scenario
