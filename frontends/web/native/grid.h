#pragma once

/// A control on a page: the table, the face that notes what has to be painted and hands on what has
/// to be shown, and the host that raises events. What the page calls reaches it by its number and
/// keeps it until it is through, whatever a handler does meanwhile.

#include "page.h"
#include "slots.h"

#include <tablio/dispatch.h>
#include <tablio/errors.h>
#include <tablio/tablio.h>

#include <memory>
#include <string>
#include <vector>

namespace tablio::web {

class Grid final : public Face, public EventSink {
public:
    explicit Grid(int number) : number_(number) {}

    /// Throws Error once the page has destroyed it.
    [[nodiscard]] Tablio &table() const;
    [[nodiscard]] bool isAlive() const noexcept { return table_ != nullptr; }
    void start();
    void destroy() { table_.reset(); }

    void shown() override { tablio_shown(number_); }
    [[nodiscard]] bool canTakeFocus() const override { return tablio_can_take_focus(number_); }
    void takeFocus() override { tablio_take_focus(number_); }
    void areaChanged(const Rect &area) override;
    void scrolled() override;
    void popUpMenu(Twips x, Twips y) override { tablio_pop_up_menu(number_, x, y); }
    void showWarning(std::string_view title, std::string_view text) override {
        showMessage(title, text, false);
    }
    [[nodiscard]] bool showQuestion(std::string_view title, std::string_view text) override {
        showMessage(title, text, true);
        return true;
    }
    [[nodiscard]] NumberFormat numberFormat() const override { return numbers; }
    [[nodiscard]] DateOrder dateOrder() const override { return dates; }
    [[nodiscard]] char32_t toUpper(char32_t character) const override {
        return tablio_case(character, true);
    }
    [[nodiscard]] char32_t toLower(char32_t character) const override {
        return tablio_case(character, false);
    }
    [[nodiscard]] Date today() const override;
    [[nodiscard]] Font defaultFont() const override { return font; }
    void propertyChanged(MemberNumber number) override { tablio_property_changed(number_, number); }
    void setHostKeyPreview(bool preview) override { tablio_key_preview(number_, preview); }
    void event(MemberNumber number, std::span<Value> arguments) override;

    // What the page has told about itself.
    NumberFormat numbers;
    DateOrder dates = DateOrder::DayMonthYear;
    Font font;
    SceneLook look;
    /// Of its palette.
    std::vector<Colour> systemColours;
    /// Bars that lie over the cells are 0 thick.
    void setRoom(Twips width, Twips height, Twips bar);
    [[nodiscard]] Arrangement arranged() const;

    /// What has to be painted of so many pixels since this was last asked, and what may be moved
    /// before.
    struct Repaint {
        ScrollMove move;
        std::vector<PixelRect> areas;
    };
    [[nodiscard]] Repaint takeRepaint(const PixelRect &all);
    void repaintAll();
    /// A number for a font, from 0.
    [[nodiscard]] std::size_t numberOf(const Font &font);
    [[nodiscard]] const Font &fontAt(std::size_t number) const { return fonts_.at(number); }

private:
    void showMessage(std::string_view title, std::string_view text, bool isQuestion);
    void noteChange();
    void arrange();

    int number_;
    std::unique_ptr<Tablio> table_;
    std::unique_ptr<HostEvents> relay_ = relayTo(*this);
    Rect room_;
    Twips bar_ = 0;
    bool isArranging_ = false;
    /// The page knows that there is something to be painted.
    bool isNoted_ = false;
    bool isAll_ = true;
    Repaint repaint_;
    /// What was first when the table was moved or painted last.
    int topRow_ = 0;
    int leftCol_ = 0;
    std::vector<Font> fonts_;
};

/// Throws Error where there is none.
[[nodiscard]] std::shared_ptr<Grid> gridAt(int number);
/// What has been thrown; a handler's own error, kind −1, the page keeps.
struct Failure {
    int kind = 0;
    int argument = -1;
    std::string message;
};
[[nodiscard]] Failure currentFailure();

/// Does something with a grid, whatever becomes of it, and throws in the page what it throws.
template <typename Action> auto with(int number, Action action) {
    Failure failure;
    try {
        const std::shared_ptr<Grid> grid = gridAt(number);
        return action(*grid);
    } catch (...) {
        failure = currentFailure();
    }
    tablio_fail(failure.kind, failure.argument, failure.message.data(), failure.message.size());
}

/// The same for what answers by numbers and texts.
template <typename Action> const void *replied(int number, Action action) {
    return with(number, [&](Grid &grid) {
        Reply reply;
        action(grid, reply);
        return reply.done();
    });
}

} // namespace tablio::web
