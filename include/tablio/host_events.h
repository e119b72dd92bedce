#pragma once

/// What a host hears. A host derives from `HostEvents`, overrides the events it cares about and
/// hands itself to `Tablio::setHost`. Events come at safe points: a handler may call any member,
/// remove the row, start another edit or destroy the control.

#include <cstdint>
#include <string>

namespace tablio {

/// Row and Col tell where the event happened; writing to them has no effect. The other arguments
/// may be changed where the event says so. Rows and columns are the grid's own, from 0.
class HostEvents {
public:
    virtual ~HostEvents() = default;

    /// An edit is about to start. Cancel True keeps the editor closed.
    virtual void EditPreValidation(std::int16_t & /*Row*/, std::int16_t & /*Col*/,
                                   bool & /*Cancel*/) {}
    /// The text of the open editor has changed to OnEdit.
    virtual void EditOnChange(std::int16_t & /*Row*/, std::int16_t & /*Col*/,
                              std::string & /*OnEdit*/) {}
    /// An edit has ended and the cell holds NewData. Turning Valid from True to False puts the old
    /// text back. LastKey is the last key code or character that the editor saw.
    virtual void EditPostValidation(std::int16_t & /*Row*/, std::int16_t & /*Col*/,
                                    bool & /*Valid*/, std::string & /*OldData*/,
                                    std::string & /*NewData*/, std::int16_t & /*LastKey*/) {}
    /// The operator asks for a value; answer by `Tablio::setLookupResult`, now or later.
    virtual void EditLookup(std::int16_t & /*Row*/, std::int16_t & /*Col*/) {}
    /// The cursor has arrived at a cell, or the grid has gained the focus there.
    virtual void CellFocus(std::int16_t & /*Row*/, std::int16_t & /*Col*/) {}
    /// A character is about to enter the editor; 0 drops it, another code replaces it.
    virtual void CellKeyPress(std::int16_t & /*Row*/, std::int16_t & /*Col*/,
                              std::int16_t & /*KeyAscii*/) {}
    /// The row stock or the text being edited has changed.
    virtual void TableChange() {}
    /// A key went down while no editor is open; KeyCode 0 keeps the grid from acting on it.
    virtual void TableKeyDown(std::int16_t & /*KeyCode*/, std::int16_t & /*Shift*/,
                              std::int16_t & /*Row*/, std::int16_t & /*Col*/) {}
    /// The cursor has moved to another row.
    virtual void TableRowChange(std::int16_t & /*OldRow*/, std::int16_t & /*NewRow*/) {}
    /// A cell was double-clicked.
    virtual void DoubleClick(std::int16_t & /*Row*/, std::int16_t & /*Col*/) {}
};

} // namespace tablio
