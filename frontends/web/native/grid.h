#pragma once

/// A control on a page: the table, the face that notes what has to be painted and hands on what has
/// to be shown, and the host that raises events. What the page calls reaches it by its number and
/// keeps it until it is through, whatever a handler does meanwhile.

#include "message.h"
#include "page.h"
#include "page_painter.h"

#include <tablio/damage.h>
#include <tablio/errors.h>
#include <tablio/tablio.h>

#include <memory>
#include <string>

namespace tablio::web {

class Grid final : public Face, public EventSink {
public:
    explicit Grid(int number) : number_(number) {}

    /// Throws Error once the page has destroyed it.
    [[nodiscard]] Tablio &table() const;
    [[nodiscard]] bool isAlive() const noexcept { return table_ != nullptr; }
    void start();
    void destroy() { table_.reset(); }
    /// Asks the page for something.
    double ask(Ask what, double a = 0, double b = 0, std::string_view text = {}) const {
        return tablio_page(number_, what, a, b, text.data(), text.size());
    }

    void shown() override { ask(Ask::Shown); }
    [[nodiscard]] bool canTakeFocus() const override { return ask(Ask::CanTakeFocus) != 0; }
    void takeFocus() override { ask(Ask::TakeFocus); }
    void areaChanged(const Rect &area) override;
    void scrolled() override;
    void popUpMenu(Twips x, Twips y) override { ask(Ask::PopUpMenu, x, y); }
    void showWarning(std::string_view title, std::string_view text) override;
    [[nodiscard]] bool showQuestion(std::string_view title, std::string_view text) override;
    [[nodiscard]] NumberFormat numberFormat() const override { return numbers; }
    [[nodiscard]] DateOrder dateOrder() const override { return dates; }
    [[nodiscard]] char32_t toUpper(char32_t character) const override;
    [[nodiscard]] char32_t toLower(char32_t character) const override;
    [[nodiscard]] Date today() const override;
    [[nodiscard]] Font defaultFont() const override { return font; }
    void propertyChanged(MemberNumber number) override { ask(Ask::PropertyChanged, number); }
    void setHostKeyPreview(bool preview) override { ask(Ask::KeyPreview, preview ? 1 : 0); }
    void event(MemberNumber number, std::span<Value> arguments) override;

    // What the page has told about itself.
    NumberFormat numbers;
    DateOrder dates = DateOrder::DayMonthYear;
    Font font;
    SceneLook look;
    PagePainter painter{*this};
    /// With bars so thick; those that lie over the cells are 0 thick.
    void setRoom(Twips width, Twips height, Twips bar);
    [[nodiscard]] Arrangement arranged() const;

    /// Also while the calendar keeps the grid from taking anything.
    [[nodiscard]] bool isEnabled() const;
    [[nodiscard]] Damage::Frame takeDamage(int width, int height);
    void repaintAll();

private:
    void noteChange();
    void arrange();

    int number_;
    std::unique_ptr<Tablio> table_;
    std::unique_ptr<HostEvents> relay_ = relayTo(*this);
    Rect room_;
    Twips bar_ = 0;
    Damage damage_;
    /// The page knows that there is something to be painted.
    bool isNoted_ = false;
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

/// The same for what answers by a message.
template <typename Action> const void *replied(int number, Action action) {
    return with(number, [&](Grid &grid) {
        Message message;
        action(grid, message);
        return message.done();
    });
}

} // namespace tablio::web
