#pragma once

/// Values of cells as Qt's models and databases hold them, and back. `TablioWidget` uses it, and so
/// may whoever works with `tablio::Cells`. It knows no locale.

#include <tablio/cell_value.h>

#include <QVariant>

namespace tablio::qt {

/// Null for an empty cell, else QString, qlonglong, double, QDate or bool. A decimal number that no
/// double holds with all its digits is its text with a point, so that both toDouble() and
/// toString() of any answer mean the number, and sorting and databases get a number where they can.
[[nodiscard]] QVariant toVariant(const CellValue &value);

/// A null variant and an empty text are an empty cell. Texts, numbers, dates (also with a time,
/// which is dropped) and bool are taken; anything else throws TypeMismatch, and a number that is
/// not finite OverflowError.
[[nodiscard]] CellValue fromVariant(const QVariant &value);

} // namespace tablio::qt
