#pragma once

/// A control with an operator, a host and a face that do what bytes say, and what has to be true
/// after each step. The targets that play whole sessions share it.

#include "fuzz.h"

#include <tablio/tablio.h>

#include <memory>
#include <string>
#include <vector>

namespace tablio::fuzz {

/// What the host does in its handlers.
enum class Mood { Quiet, Refusing, Acting, Throwing, Destroying };

/// A face without a window; derived ones behave like worse platforms.
class SessionFace : public Face {
public:
    std::string clipboard;
    NumberFormat format;

    [[nodiscard]] std::string clipboardText() override { return clipboard; }
    void setClipboardText(std::string_view text) override { clipboard = text; }
    [[nodiscard]] NumberFormat numberFormat() const override { return format; }
};

class Session final : private HostEvents {
public:
    /// The face must live as long as the session.
    Session(Bytes &bytes, SessionFace &face);

    /// What a user or a host does next; nothing once the control is gone. Errors of the control and
    /// of the host pass through.
    void step();
    /// Plays all bytes and checks the control after each step.
    void play();

    /// What the host heard so far.
    [[nodiscard]] const std::vector<std::string> &log() const noexcept { return log_; }
    [[nodiscard]] Tablio *table() noexcept { return table_.get(); }

private:
    struct Report {
        CellAddress cell;
        bool valid;
        std::string text;
    };

    void setUp();
    void act(int what);
    void typeInto();
    void checkOrder();
    void hears(const std::string &what);
    void reacts();

    void EditPreValidation(std::int16_t &Row, std::int16_t &Col, bool &Cancel) override;
    void EditOnChange(std::int16_t &Row, std::int16_t &Col, std::string &OnEdit) override;
    void EditPostValidation(std::int16_t &Row, std::int16_t &Col, bool &Valid, std::string &OldData,
                            std::string &NewData, std::int16_t &LastKey) override;
    void EditLookup(std::int16_t &Row, std::int16_t &Col) override;
    void CellFocus(std::int16_t &Row, std::int16_t &Col) override;
    void CellKeyPress(std::int16_t &Row, std::int16_t &Col, std::int16_t &KeyAscii) override;
    void TableChange() override;
    void TableRowChange(std::int16_t &OldRow, std::int16_t &NewRow) override;

    Bytes &bytes_;
    Mood mood_;
    SessionFace &face_;
    std::unique_ptr<Tablio> table_;
    std::vector<std::string> log_;
    std::vector<Report> reports_;
    int depth_ = 0;
};

} // namespace tablio::fuzz
