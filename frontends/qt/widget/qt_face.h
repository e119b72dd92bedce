#pragma once

/// The core's view of Qt: what changed is shown, and what only the platform knows is answered.
/// Nothing here waits for the user.

#include <tablio/face.h>

#include <QElapsedTimer>

#include <optional>

namespace tablio::qt {

class TablioWidgetPrivate;

class QtFace final : public Face {
public:
    explicit QtFace(TablioWidgetPrivate &parts) : parts_(parts) {
        // Nobody can have connected a slot yet.
        setHearsProperties(false);
    }

    void shown() override;
    [[nodiscard]] bool canTakeFocus() const override;
    void takeFocus() override;
    void areaChanged(const Rect &area) override;
    void scrolled() override;
    void popUpMenu(Twips x, Twips y) override;
    void showWarning(std::string_view title, std::string_view text) override;
    [[nodiscard]] bool showQuestion(std::string_view title, std::string_view text) override;

    [[nodiscard]] std::string clipboardText() override;
    void setClipboardText(std::string_view text) override;

    [[nodiscard]] NumberFormat numberFormat() const override;
    /// The widget has another locale.
    void forgetNumberFormat() { numbers_.reset(); }
    [[nodiscard]] char32_t toUpper(char32_t character) const override;
    [[nodiscard]] char32_t toLower(char32_t character) const override;
    [[nodiscard]] Date today() const override;
    [[nodiscard]] DateOrder dateOrder() const override;
    [[nodiscard]] tablio::Font defaultFont() const override;

    [[nodiscard]] Twips textWidth(std::string_view text, const tablio::Font &font) const override;

    void letPendingEventsRun() override;
    void propertyChanged(MemberNumber number) override;
    /// The widget's signal of that has somebody who hears it.
    void listen() { setHearsProperties(true); }
    void setHostKeyPreview(bool preview) override { hostKeyPreview_ = preview; }
    [[nodiscard]] bool hostKeyPreview() const noexcept { return hostKeyPreview_; }

private:
    TablioWidgetPrivate &parts_;
    /// Of letPendingEventsRun().
    unsigned calls_ = 0;
    /// Since the last look at the clock, and since events last ran or the scan began.
    QElapsedTimer sinceLook_;
    QElapsedTimer sinceEvents_;
    /// The locale's, asked for once: numbers are formatted by the hundred thousand.
    mutable std::optional<NumberFormat> numbers_;
    bool hostKeyPreview_ = false;
};

} // namespace tablio::qt
