#pragma once

/// The control's two partners: the host that hears events and the face that shows. Everything that
/// is raised or asked goes through here, so that a control which is being destroyed under a running
/// handler falls silent at once and the handler's caller can finish safely.

#include <tablio/face.h>
#include <tablio/host_events.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace tablio {

class HostLink {
public:
    [[nodiscard]] Face &face() const noexcept { return *face_; }
    /// Null for a control without a face.
    void setFace(Face *face) noexcept { face_ = face != nullptr ? face : &noFace_; }
    void setHost(HostEvents *host) noexcept { host_ = host; }
    /// The control's owner is gone: nobody is told anything from now on.
    void close() noexcept;
    [[nodiscard]] bool isClosed() const noexcept { return closed_; }

    /// Raise an event; rows and columns beyond 16 bits throw OverflowError before the host hears
    /// anything. What the host may change is answered.
    [[nodiscard]] bool EditPreValidation(CellAddress cell);
    void EditOnChange(CellAddress cell, std::string_view onEdit);
    [[nodiscard]] bool EditPostValidation(CellAddress cell, bool valid, std::string_view oldData,
                                          std::string_view newData, std::int16_t lastKey);
    void EditLookup(CellAddress cell);
    void CellFocus(CellAddress cell);
    [[nodiscard]] std::int16_t CellKeyPress(CellAddress cell, std::int16_t keyAscii);
    void TableChange();
    [[nodiscard]] KeyCode TableKeyDown(KeyCode key, ShiftState shift, CellAddress cell);
    void TableRowChange(int oldRow, int newRow);
    void DoubleClick(CellAddress cell);

private:
    Face noFace_;
    Face *face_ = &noFace_;
    HostEvents *host_ = nullptr;
    bool closed_ = false;
};

[[noreturn]] void throwBeyond16Bits(int number, std::string_view what);

/// The number as the 16 bits that rows, columns and keys have in events and members; throws
/// OverflowError where it has more. In line, since every cell that is written comes through here.
[[nodiscard]] inline std::int16_t to16Bit(int number, std::string_view what) {
    const auto result = static_cast<std::int16_t>(number);
    if (result != number)
        throwBeyond16Bits(number, what);
    return result;
}

} // namespace tablio
