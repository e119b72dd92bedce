#include "state/host_link.h"

#include <tablio/errors.h>

namespace tablio {

void throwBeyond16Bits(int number, std::string_view what) {
    throw OverflowError(std::string(what) + ": " + std::to_string(number) +
                        " does not fit 16 bits");
}

namespace {

struct EventCell {
    explicit EventCell(CellAddress cell)
        : row(to16Bit(cell.row, "row")), col(to16Bit(cell.col, "column")) {}
    std::int16_t row;
    std::int16_t col;
};

} // namespace

void HostLink::close() noexcept {
    closed_ = true;
    host_ = nullptr;
    face_ = &noFace_;
}

void HostLink::takeFocus() {
    const auto outermost = outside();
    face_->takeFocus();
}

void HostLink::letPendingEventsRun() {
    const auto outermost = outside();
    report();
    face_->letPendingEventsRun();
}

void HostLink::propertyChangedInside(MemberNumber number) {
    if (isQuiet_)
        return;
    const auto outermost = outside();
    report();
    face_->propertyChanged(number);
}

std::string HostLink::clipboardText() {
    return clipboard_ != nullptr ? clipboard_->value_or(std::string()) : face_->clipboardText();
}

void HostLink::setClipboardText(std::string_view text) {
    copied_ = text;
    if (clipboard_ != nullptr)
        clipboard_->emplace(text);
    else
        face_->setClipboardText(text);
}

bool HostLink::EditPreValidation(CellAddress cell) {
    EventCell at(cell);
    bool cancel = false;
    raise(&HostEvents::EditPreValidation, at.row, at.col, cancel);
    return cancel;
}

void HostLink::EditOnChange(CellAddress cell, std::string_view onEdit) {
    EventCell at(cell);
    std::string text(onEdit);
    raise(&HostEvents::EditOnChange, at.row, at.col, text);
}

bool HostLink::EditPostValidation(CellAddress cell, bool valid, std::string_view oldData,
                                  std::string_view newData, std::int16_t lastKey) {
    EventCell at(cell);
    std::string oldText(oldData);
    std::string newText(newData);
    raise(&HostEvents::EditPostValidation, at.row, at.col, valid, oldText, newText, lastKey);
    return valid;
}

void HostLink::EditLookup(CellAddress cell) {
    EventCell at(cell);
    raise(&HostEvents::EditLookup, at.row, at.col);
}

void HostLink::CellFocus(CellAddress cell) {
    EventCell at(cell);
    raise(&HostEvents::CellFocus, at.row, at.col);
}

std::int16_t HostLink::CellKeyPress(CellAddress cell, std::int16_t keyAscii) {
    EventCell at(cell);
    raise(&HostEvents::CellKeyPress, at.row, at.col, keyAscii);
    return keyAscii;
}

void HostLink::TableChange() { raise(&HostEvents::TableChange); }

KeyCode HostLink::TableKeyDown(KeyCode key, ShiftState shift, CellAddress cell) {
    EventCell at(cell);
    raise(&HostEvents::TableKeyDown, key, shift, at.row, at.col);
    return key;
}

void HostLink::TableRowChange(int oldRow, int newRow) {
    std::int16_t from = to16Bit(oldRow, "row");
    std::int16_t to = to16Bit(newRow, "row");
    raise(&HostEvents::TableRowChange, from, to);
}

void HostLink::DoubleClick(CellAddress cell) {
    EventCell at(cell);
    raise(&HostEvents::DoubleClick, at.row, at.col);
}

} // namespace tablio
