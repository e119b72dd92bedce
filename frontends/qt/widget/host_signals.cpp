#include "widget/host_signals.h"

#include "widget/qt_text.h"

#include <tablio/qt/tablio_widget.h>

#include <QMetaMethod>

namespace tablio::qt {

namespace {

/// A slot's number as the core's 16 bits. Codes above 32,767 are characters; slots see them as the
/// positive numbers they are.
std::int16_t code16(int code) {
    return static_cast<std::int16_t>(static_cast<std::uint16_t>(code));
}

int codeOf(std::int16_t code) { return static_cast<std::uint16_t>(code); }

} // namespace

void HostSignals::EditPreValidation(std::int16_t &Row, std::int16_t &Col, bool &Cancel) {
    int row = Row;
    int col = Col;
    Q_EMIT widget_.editPreValidation(row, col, Cancel);
}

void HostSignals::EditOnChange(std::int16_t &Row, std::int16_t &Col, std::string &OnEdit) {
    static const QMetaMethod signal = QMetaMethod::fromSignal(&TablioWidget::editOnChange);
    if (!widget_.isSignalConnected(signal))
        return;
    int row = Row;
    int col = Col;
    QString onEdit = toQString(OnEdit);
    Q_EMIT widget_.editOnChange(row, col, onEdit);
    OnEdit = fromQString(onEdit);
}

void HostSignals::EditPostValidation(std::int16_t &Row, std::int16_t &Col, bool &Valid,
                                     std::string &OldData, std::string &NewData,
                                     std::int16_t &LastKey) {
    static const QMetaMethod signal = QMetaMethod::fromSignal(&TablioWidget::editPostValidation);
    if (!widget_.isSignalConnected(signal))
        return;
    int row = Row;
    int col = Col;
    QString oldData = toQString(OldData);
    QString newData = toQString(NewData);
    int lastKey = codeOf(LastKey);
    Q_EMIT widget_.editPostValidation(row, col, Valid, oldData, newData, lastKey);
    OldData = fromQString(oldData);
    NewData = fromQString(newData);
    LastKey = code16(lastKey);
}

void HostSignals::EditLookup(std::int16_t &Row, std::int16_t &Col) {
    int row = Row;
    int col = Col;
    Q_EMIT widget_.editLookup(row, col);
}

void HostSignals::CellFocus(std::int16_t &Row, std::int16_t &Col) {
    int row = Row;
    int col = Col;
    Q_EMIT widget_.cellFocus(row, col);
}

void HostSignals::CellKeyPress(std::int16_t &Row, std::int16_t &Col, std::int16_t &KeyAscii) {
    int row = Row;
    int col = Col;
    int keyAscii = codeOf(KeyAscii);
    Q_EMIT widget_.cellKeyPress(row, col, keyAscii);
    KeyAscii = code16(keyAscii);
}

void HostSignals::TableChange() { Q_EMIT widget_.tableChange(); }

void HostSignals::TableKeyDown(std::int16_t &KeyCode, std::int16_t &Shift, std::int16_t &Row,
                               std::int16_t &Col) {
    int keyCode = codeOf(KeyCode);
    int shift = Shift;
    int row = Row;
    int col = Col;
    Q_EMIT widget_.tableKeyDown(keyCode, shift, row, col);
    KeyCode = code16(keyCode);
    Shift = code16(shift);
}

void HostSignals::TableRowChange(std::int16_t &OldRow, std::int16_t &NewRow) {
    int oldRow = OldRow;
    int newRow = NewRow;
    Q_EMIT widget_.tableRowChange(oldRow, newRow);
}

void HostSignals::DoubleClick(std::int16_t &Row, std::int16_t &Col) {
    int row = Row;
    int col = Col;
    Q_EMIT widget_.doubleClick(row, col);
}

} // namespace tablio::qt
