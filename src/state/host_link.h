#pragma once

/// The control's two partners: the host that hears events and the face that shows. Everything that
/// is raised or asked goes through here, so that a control which is being destroyed under a running
/// handler falls silent at once and the handler's caller can finish safely. It also knows when the
/// face has to hear that something changed: once for each outermost call.

#include "state/temporarily.h"

#include <tablio/face.h>
#include <tablio/host_events.h>
#include <tablio/table_notices.h>
#include <tablio/witness.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

namespace tablio {

[[noreturn]] void throwBeyond16Bits(int number, std::string_view what);

/// The number as the 16 bits that rows, columns and keys have in events and members; throws
/// OverflowError where it has more. In line, since every cell that is written comes through here.
[[nodiscard]] inline std::int16_t to16Bit(int number, std::string_view what) {
    const auto result = static_cast<std::int16_t>(number);
    if (result != number)
        throwBeyond16Bits(number, what);
    return result;
}

/// A change of the table on its way to the host.
struct Note {
    enum class Kind { CellChanged, RowsInserted, RowsRemoved, TableCleared, TableReset };
    Kind kind = Kind::TableReset;
    /// Row and column, or first row and count.
    int first = 0;
    int second = 0;

    friend bool operator==(const Note &, const Note &) = default;
};

class HostLink {
public:
    [[nodiscard]] Face &face() const noexcept { return *face_; }
    [[nodiscard]] bool hasFace() const noexcept { return face_ != &noFace_; }
    /// Null for a control without a face.
    void setFace(Face *face) noexcept { face_ = face != nullptr ? face : &noFace_; }
    void setHost(HostEvents *host) noexcept { host_ = host; }
    void setNotices(TableNotices *notices) noexcept { notices_ = notices; }
    [[nodiscard]] bool hasNotices() const noexcept { return notices_ != nullptr; }
    void setWitness(Witness *witness) noexcept { witness_ = witness; }
    /// An action of the user, as long as it lasts.
    class Acting {
    public:
        explicit Acting(HostLink &link) : link_(link) { ++link_.actions_; }
        ~Acting() {
            if (--link_.actions_ == 0 && link_.witness_ != nullptr)
                link_.witness_->actionEnds();
        }
        Acting(const Acting &) = delete;
        Acting &operator=(const Acting &) = delete;

    private:
        HostLink &link_;
    };
    /// The witness hears of the action where it is not a part of another; what makes it is asked
    /// only then.
    template <typename Make> [[nodiscard]] Acting acting(const Make &make) {
        if (witness_ != nullptr && actions_ == 0)
            witness_->actionBegins(make());
        return Acting(*this);
    }
    /// The control's owner is gone: nobody is told anything from now on.
    void close() noexcept;
    [[nodiscard]] bool isClosed() const noexcept { return closed_; }

    /// What a face shows besides the cells is another. Outside of any call the face hears it now.
    void markChanged() {
        isChanged_ = true;
        if (depth_ == 0)
            report();
    }
    /// The table has changed, which the host hears at the next safe point.
    void note(const Note &note) {
        const bool isRows =
            note.kind == Note::Kind::RowsInserted || note.kind == Note::Kind::RowsRemoved;
        if (notices_ == nullptr || (!isRows && !notes_.empty() && notes_.back() == note))
            return;
        notes_.push_back(note);
        if (depth_ == 0)
            report();
    }
    /// Around each call into the control. Built with assertions, it throws Error for a call from
    /// another thread than the first one came from.
    void enter() {
#ifndef NDEBUG
        checkThread();
#endif
        ++depth_;
    }
    void leave() {
        if (--depth_ == 0)
            report();
    }

    // What may run a host's code in the platform's own way.
    void takeFocus() {
        const auto outermost = outside();
        face_->takeFocus();
    }
    void letPendingEventsRun() {
        const auto outermost = outside();
        report();
        face_->letPendingEventsRun();
    }
    /// In line, since it comes for each cell that a host fills.
    void propertyChanged(MemberNumber number) {
        if (!face_->hearsProperties())
            return;
        if (depth_ == 0)
            face_->propertyChanged(number);
        else
            propertyChangedInside(number);
    }
    [[nodiscard]] std::string clipboardText() {
        return clipboard_ != nullptr ? clipboard_->value_or(std::string()) : face_->clipboardText();
    }
    void setClipboardText(std::string_view text) {
        copied_ = text;
        if (clipboard_ != nullptr)
            clipboard_->emplace(text);
        else
            face_->setClipboardText(text);
    }
    /// In which order a date that came by the clipboard is written: what the control put there
    /// itself has its own order.
    [[nodiscard]] DateOrder dateOrderOf(std::string_view clipboardText) const {
        return clipboardText == copied_ ? DateOrder::DayMonthYear : face_->dateOrder();
    }
    /// While it lives, this text stands for the platform's clipboard, for a face that gets and
    /// gives the clipboard with an event.
    [[nodiscard]] Temporarily<std::optional<std::string> *>
    otherClipboard(std::optional<std::string> &text) {
        return {clipboard_, &text};
    }
    /// While it lives, inside a call, the host hears no event and the face of no property.
    [[nodiscard]] Temporarily<bool> quiet() { return {isQuiet_, true}; }

    /// Raises an event. What the host has made of the arguments is in them afterwards.
    template <typename... Arguments>
    void raise(void (HostEvents::*event)(Arguments &...), Arguments &...arguments) {
        if ((host_ == nullptr && witness_ == nullptr) || isQuiet_)
            return;
        const auto outermost = outside();
        report();
        if (witness_ != nullptr)
            tell(&Witness::raised, event, arguments...);
        if (host_ != nullptr)
            (host_->*event)(arguments...);
        if (witness_ != nullptr)
            tell(&Witness::answered, event, arguments...);
    }
    /// The same for one that happens at a cell. A row or column beyond 16 bits throws OverflowError
    /// before the host hears anything.
    template <typename... Arguments>
    void raise(void (HostEvents::*event)(std::int16_t &, std::int16_t &, Arguments &...),
               CellAddress cell, Arguments &...arguments) {
        std::int16_t row = to16Bit(cell.row, "row");
        std::int16_t col = to16Bit(cell.col, "column");
        raise(event, row, col, arguments...);
    }

    // The events as the control raises them, with what a host may answer.
    [[nodiscard]] bool EditPreValidation(CellAddress cell) {
        bool cancel = false;
        raise(&HostEvents::EditPreValidation, cell, cancel);
        return cancel;
    }
    void EditOnChange(CellAddress cell, std::string_view onEdit) {
        std::string text(onEdit);
        raise(&HostEvents::EditOnChange, cell, text);
    }
    [[nodiscard]] bool EditPostValidation(CellAddress cell, bool valid, std::string_view oldData,
                                          std::string_view newData, std::int16_t lastKey) {
        std::string oldText(oldData);
        std::string newText(newData);
        raise(&HostEvents::EditPostValidation, cell, valid, oldText, newText, lastKey);
        return valid;
    }
    void EditLookup(CellAddress cell) { raise(&HostEvents::EditLookup, cell); }
    void CellFocus(CellAddress cell) { raise(&HostEvents::CellFocus, cell); }
    [[nodiscard]] std::int16_t CellKeyPress(CellAddress cell, std::int16_t keyAscii) {
        raise(&HostEvents::CellKeyPress, cell, keyAscii);
        return keyAscii;
    }
    void TableChange() { raise(&HostEvents::TableChange); }
    [[nodiscard]] KeyCode TableKeyDown(KeyCode key, ShiftState shift, CellAddress cell) {
        std::int16_t row = to16Bit(cell.row, "row");
        std::int16_t col = to16Bit(cell.col, "column");
        raise(&HostEvents::TableKeyDown, key, shift, row, col);
        return key;
    }
    void TableRowChange(int oldRow, int newRow) {
        std::int16_t from = to16Bit(oldRow, "row");
        std::int16_t to = to16Bit(newRow, "row");
        raise(&HostEvents::TableRowChange, from, to);
    }
    void DoubleClick(CellAddress cell) { raise(&HostEvents::DoubleClick, cell); }

private:
    /// Copies, which the witness may do with as it likes.
    template <typename... Arguments>
    void tell(HostEvents &(Witness::*which)(), void (HostEvents::*event)(Arguments &...),
              const Arguments &...arguments) {
        std::tuple<Arguments...> copies(arguments...);
        std::apply([&](Arguments &...each) { ((witness_->*which)().*event)(each...); }, copies);
    }
    /// While it lives a host's code may run, with an event loop of its own: its calls count as
    /// outermost ones.
    [[nodiscard]] Temporarily<int> outside() { return {depth_, 0}; }

    void report() {
        if (std::exchange(isChanged_, false))
            face_->shown();
        if (!notes_.empty() && !isTelling_ && !isQuiet_)
            tellNotes();
    }
    void tellNotes();
    void propertyChangedInside(MemberNumber number);
    void checkThread();

    Face noFace_;
    Face *face_ = &noFace_;
    HostEvents *host_ = nullptr;
    TableNotices *notices_ = nullptr;
    /// In the order in which it happened.
    std::vector<Note> notes_;
    bool isTelling_ = false;
    Witness *witness_ = nullptr;
    /// How deep user actions are nested.
    int actions_ = 0;
    int depth_ = 0;
    bool isChanged_ = false;
    std::optional<std::string> *clipboard_ = nullptr;
    bool isQuiet_ = false;
    /// What the control itself last put on the clipboard.
    std::string copied_;
    bool closed_ = false;
    /// Tells the thread of the first call from every other.
    const char *thread_ = nullptr;
};

} // namespace tablio
