#pragma once

/// The host of a scenario: it writes every event down, one line each, and answers as the scenario
/// has prepared. It knows events and no steps; what a step in a handler means, the interpreter
/// tells it.

#include "support/scenario_text.h"

#include <tablio/host_events.h>
#include <tablio/types.h>

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tablio::scenario {

/// What a scenario's handler throws.
class HostError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// One prepared answer.
struct HostRule {
    std::string event;
    /// Only for this cell.
    std::optional<CellAddress> cell;
    /// Used up by the first event that it fits.
    bool once = false;
    /// Argument and value to be answered.
    std::optional<std::pair<std::string, Token>> answer;
    std::optional<std::string> error;
    std::vector<Line> steps;

    bool usedUp = false;
    /// Its steps are running: events that they raise do not start them again.
    bool running = false;
};

class ScenarioHost : public HostEvents {
public:
    struct Entry {
        std::string event;
        std::string text;
    };

    /// Runs steps inside a handler.
    std::function<void(const std::vector<Line> &)> runSteps;

    /// Throws ScriptError when no event has such a name or argument.
    void add(HostRule rule);
    void forgetRules() { rules_.clear(); }
    [[nodiscard]] std::vector<Entry> takeEvents() { return std::exchange(events_, {}); }
    /// Throws ScriptError for a name that no event has.
    static void checkEvent(std::string_view name);

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
    using Answers = std::map<std::string_view, std::function<void(const Token &)>>;
    void handle(std::string_view event, std::optional<CellAddress> cell, const std::string &details,
                const Answers &answers);

    std::vector<Entry> events_;
    /// A deque, because a rule's steps may add rules while it runs.
    std::deque<HostRule> rules_;
};

} // namespace tablio::scenario
