#pragma once

/// The core's events as the widget's signals. Strings are converted only for a signal that
/// somebody hears.

#include <tablio/host_events.h>

namespace tablio::qt {

class TablioWidget;

/// A slot may delete the widget and this object with it: after an emission nothing here touches a
/// member. The arguments themselves belong to the core, which outlives the call.
class HostSignals final : public HostEvents {
public:
    explicit HostSignals(TablioWidget &widget) : widget_(widget) {}

    void EditPreValidation(std::int16_t &Row, std::int16_t &Col, bool &Cancel) override;
    void EditOnChange(std::int16_t &Row, std::int16_t &Col, std::string &OnEdit) override;
    void EditPostValidation(std::int16_t &Row, std::int16_t &Col, bool &Valid, std::string &OldData,
                            std::string &NewData, std::int16_t &LastKey) override;
    void EditLookup(std::int16_t &Row, std::int16_t &Col) override;
    void CellFocus(std::int16_t &Row, std::int16_t &Col) override;
    void CellKeyPress(std::int16_t &Row, std::int16_t &Col, std::int16_t &KeyAscii) override;
    void TableChange() override;
    void TableKeyDown(std::int16_t &KeyCode, std::int16_t &Shift, std::int16_t &Row,
                      std::int16_t &Col) override;
    void TableRowChange(std::int16_t &OldRow, std::int16_t &NewRow) override;
    void DoubleClick(std::int16_t &Row, std::int16_t &Col) override;

private:
    TablioWidget &widget_;
};

} // namespace tablio::qt
