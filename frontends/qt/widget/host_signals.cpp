#include "widget/host_signals.h"

#include "widget/qt_text.h"

#include <tablio/qt/tablio_widget.h>

#include <QMetaMethod>

namespace tablio::qt {

namespace {

/// An event's argument as a signal's, for the length of one emission: what a slot has made of it
/// goes back to the core, to whom the argument belongs and who outlives the call.
class Number {
public:
    explicit Number(std::int16_t &core) : Number(core, core) {}
    Number(std::int16_t &core, int native) : core_(core), native_(native) {}
    ~Number() { core_ = static_cast<std::int16_t>(static_cast<std::uint16_t>(native_)); }
    Number(const Number &) = delete;
    Number &operator=(const Number &) = delete;
    operator int &() { return native_; }

private:
    std::int16_t &core_;
    int native_;
};

/// Codes above 32,767 are characters; slots see them as the positive numbers they are.
Number code(std::int16_t &core) { return {core, static_cast<std::uint16_t>(core)}; }

class Text {
public:
    explicit Text(std::string &core) : core_(core), native_(toQString(core)) {}
    ~Text() { core_ = fromQString(native_); }
    Text(const Text &) = delete;
    Text &operator=(const Text &) = delete;
    operator QString &() { return native_; }

private:
    std::string &core_;
    QString native_;
};

} // namespace

/// A slot may delete the widget and this object with it: after an emission nothing here touches a
/// member. Texts are converted only for a signal that somebody hears.
class HostSignals final : public HostEvents {
public:
    explicit HostSignals(TablioWidget &widget) : widget_(widget) {}

    void EditPreValidation(std::int16_t &Row, std::int16_t &Col, bool &Cancel) override {
        Q_EMIT widget_.editPreValidation(Number(Row), Number(Col), Cancel);
    }
    void EditOnChange(std::int16_t &Row, std::int16_t &Col, std::string &OnEdit) override {
        static const QMetaMethod signal = QMetaMethod::fromSignal(&TablioWidget::editOnChange);
        if (widget_.isSignalConnected(signal))
            Q_EMIT widget_.editOnChange(Number(Row), Number(Col), Text(OnEdit));
    }
    void EditPostValidation(std::int16_t &Row, std::int16_t &Col, bool &Valid, std::string &OldData,
                            std::string &NewData, std::int16_t &LastKey) override {
        static const QMetaMethod signal =
            QMetaMethod::fromSignal(&TablioWidget::editPostValidation);
        if (widget_.isSignalConnected(signal))
            Q_EMIT widget_.editPostValidation(Number(Row), Number(Col), Valid, Text(OldData),
                                              Text(NewData), code(LastKey));
    }
    void EditLookup(std::int16_t &Row, std::int16_t &Col) override {
        Q_EMIT widget_.editLookup(Number(Row), Number(Col));
    }
    void CellFocus(std::int16_t &Row, std::int16_t &Col) override {
        Q_EMIT widget_.cellFocus(Number(Row), Number(Col));
    }
    void CellKeyPress(std::int16_t &Row, std::int16_t &Col, std::int16_t &KeyAscii) override {
        Q_EMIT widget_.cellKeyPress(Number(Row), Number(Col), code(KeyAscii));
    }
    void TableChange() override { Q_EMIT widget_.tableChange(); }
    void TableKeyDown(std::int16_t &KeyCode, std::int16_t &Shift, std::int16_t &Row,
                      std::int16_t &Col) override {
        Q_EMIT widget_.tableKeyDown(code(KeyCode), Number(Shift), Number(Row), Number(Col));
    }
    void TableRowChange(std::int16_t &OldRow, std::int16_t &NewRow) override {
        Q_EMIT widget_.tableRowChange(Number(OldRow), Number(NewRow));
    }
    void DoubleClick(std::int16_t &Row, std::int16_t &Col) override {
        Q_EMIT widget_.doubleClick(Number(Row), Number(Col));
    }

private:
    TablioWidget &widget_;
};

std::unique_ptr<HostEvents> makeHostSignals(TablioWidget &widget) {
    return std::make_unique<HostSignals>(widget);
}

} // namespace tablio::qt
