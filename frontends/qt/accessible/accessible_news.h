#pragma once

/// Tells screen readers what has changed: where the keyboard is now, once, by the cell, the editor
/// or the day that it has reached; which known cells hold something else; rows that came or went.
/// It looks when the event that did it is over, so that cells passed on the way are not told.

#include <tablio/tablio.h>

#include <QAccessible>

#include <optional>

namespace tablio::qt {

class TablioWidgetPrivate;

class AccessibleNews {
public:
    explicit AccessibleNews(TablioWidgetPrivate &parts) : parts_(parts) {}
    ~AccessibleNews();
    AccessibleNews(const AccessibleNews &) = delete;
    AccessibleNews &operator=(const AccessibleNews &) = delete;

    /// Something may be another. Costs next to nothing while no screen reader is there.
    void look();
    /// The native text box has got or lost the platform's keyboard.
    void keyboardMoved();
    /// The keyboard has come, and where it is has not been told yet. Until then the native text box
    /// is not known as an editor, of which Qt would tell a second time.
    [[nodiscard]] bool isArriving() const noexcept { return isArriving_; }
    /// Says something that the user would not find by himself.
    void notify(const QString &text);
    /// Where the keyboard is inside the control; null for nowhere.
    [[nodiscard]] QAccessibleInterface *focused() const;

private:
    /// What has the keyboard, so that it is told when it is another.
    struct Focused {
        enum class Kind { Nothing, Grid, Cell, Editor, Day } kind = Kind::Nothing;
        CellAddress cell;
        EditNumber edit = 0;
        Date day;

        friend bool operator==(const Focused &, const Focused &) = default;
    };
    struct Counts {
        int rows = 0;
        int cols = 0;

        friend bool operator==(const Counts &, const Counts &) = default;
    };

    [[nodiscard]] Focused now() const;
    [[nodiscard]] QAccessibleInterface *interfaceOf(const Focused &focused) const;
    void tell();
    void tellCounts();

    TablioWidgetPrivate &parts_;
    bool isLooking_ = false;
    bool isArriving_ = false;
    Focused told_;
    std::optional<Counts> counts_;
    /// What notify() says; none at first.
    std::optional<QAccessible::Id> notice_;
};

} // namespace tablio::qt
