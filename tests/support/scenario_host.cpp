#include "support/scenario_host.h"

#include "support/scenario_values.h"
#include "widgets/utf16.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tablio::scenario {

namespace {

struct EventShape {
    std::string_view name;
    std::vector<std::string_view> arguments;
};

const std::vector<EventShape> &shapes() {
    static const std::vector<EventShape> all{
        {"EditPreValidation", {"Row", "Col", "Cancel"}},
        {"EditOnChange", {"Row", "Col", "OnEdit"}},
        {"EditPostValidation", {"Row", "Col", "Valid", "OldData", "NewData", "LastKey"}},
        {"EditLookup", {"Row", "Col"}},
        {"CellFocus", {"Row", "Col"}},
        {"CellKeyPress", {"Row", "Col", "KeyAscii"}},
        {"TableChange", {}},
        {"TableKeyDown", {"KeyCode", "Shift", "Row", "Col"}},
        {"TableRowChange", {"OldRow", "NewRow"}},
        {"DoubleClick", {"Row", "Col"}},
    };
    return all;
}

const EventShape &shapeOf(std::string_view name) {
    for (const EventShape &shape : shapes()) {
        if (shape.name == name)
            return shape;
    }
    throw ScriptError("there is no event " + std::string(name));
}

template <typename T>
std::pair<std::string_view, std::function<void(const Token &)>> answer(std::string_view name,
                                                                       T &argument) {
    return {name, [&argument](const Token &value) { argument = valueOf<T>(value); }};
}

/// A character is answered as a text, a code as a number.
void answerKey(std::int16_t &key, const Token &value) {
    if (value.quoted) {
        const std::u32string characters = utf16::characters(value.text);
        key = static_cast<std::int16_t>(static_cast<std::uint16_t>(characters.at(0)));
    } else {
        key = valueOf<std::int16_t>(value);
    }
}

std::string characterText(std::int16_t keyAscii) {
    if (keyAscii >= 0 && keyAscii < ' ')
        return std::to_string(keyAscii);
    std::string text;
    utf16::append(text, static_cast<std::uint16_t>(keyAscii));
    return quoted(text);
}

/// Marks a rule whose steps run, also when one of them throws.
class Running {
public:
    Running(std::deque<HostRule> &rules, std::size_t at) : rules_(rules), at_(at) {
        rules_[at_].running = true;
    }
    ~Running() {
        if (at_ < rules_.size())
            rules_[at_].running = false;
    }
    Running(const Running &) = delete;
    Running &operator=(const Running &) = delete;

private:
    std::deque<HostRule> &rules_;
    std::size_t at_;
};

CellAddress cellOf(std::int16_t row, std::int16_t col) { return {row, col}; }

} // namespace

void ScenarioHost::checkEvent(std::string_view name) { static_cast<void>(shapeOf(name)); }

void ScenarioHost::add(HostRule rule) {
    const EventShape &shape = shapeOf(rule.event);
    if (rule.cell && std::ranges::find(shape.arguments, "Row") == shape.arguments.end())
        throw ScriptError(rule.event + " happens at no cell");
    if (rule.answer &&
        std::ranges::find(shape.arguments, rule.answer->first) == shape.arguments.end())
        throw ScriptError(rule.event + " has no argument " + rule.answer->first);
    rules_.push_back(std::move(rule));
}

void ScenarioHost::handle(std::string_view event, std::optional<CellAddress> cell,
                          const std::string &details, const Answers &answers) {
    std::string text(event);
    if (cell)
        text += " " + std::to_string(cell->row) + " " + std::to_string(cell->col);
    events_.push_back({std::string(event), text + details});
    for (std::size_t at = 0; at < rules_.size(); ++at) {
        HostRule &rule = rules_[at];
        if (rule.event != event || (rule.cell && rule.cell != cell) || rule.usedUp || rule.running)
            continue;
        rule.usedUp = rule.once;
        // The steps may forget all rules, this one too.
        const HostRule fired = rule;
        if (fired.answer)
            answers.at(fired.answer->first)(fired.answer->second);
        if (!fired.steps.empty()) {
            const Running running(rules_, at);
            runSteps(fired.steps);
        }
        if (fired.error)
            throw HostError(*fired.error);
    }
}

void ScenarioHost::EditPreValidation(std::int16_t &Row, std::int16_t &Col, bool &Cancel) {
    handle("EditPreValidation", cellOf(Row, Col), {},
           {answer("Row", Row), answer("Col", Col), answer("Cancel", Cancel)});
}

void ScenarioHost::EditOnChange(std::int16_t &Row, std::int16_t &Col, std::string &OnEdit) {
    handle("EditOnChange", cellOf(Row, Col), " " + quoted(OnEdit),
           {answer("Row", Row), answer("Col", Col), answer("OnEdit", OnEdit)});
}

void ScenarioHost::EditPostValidation(std::int16_t &Row, std::int16_t &Col, bool &Valid,
                                      std::string &OldData, std::string &NewData,
                                      std::int16_t &LastKey) {
    handle("EditPostValidation", cellOf(Row, Col),
           " Valid " + shown(Valid) + " " + quoted(OldData) + " -> " + quoted(NewData) +
               " LastKey " + std::to_string(LastKey),
           {answer("Row", Row), answer("Col", Col), answer("Valid", Valid),
            answer("OldData", OldData), answer("NewData", NewData), answer("LastKey", LastKey)});
}

void ScenarioHost::EditLookup(std::int16_t &Row, std::int16_t &Col) {
    handle("EditLookup", cellOf(Row, Col), {}, {answer("Row", Row), answer("Col", Col)});
}

void ScenarioHost::CellFocus(std::int16_t &Row, std::int16_t &Col) {
    handle("CellFocus", cellOf(Row, Col), {}, {answer("Row", Row), answer("Col", Col)});
}

void ScenarioHost::CellKeyPress(std::int16_t &Row, std::int16_t &Col, std::int16_t &KeyAscii) {
    handle("CellKeyPress", cellOf(Row, Col), " " + characterText(KeyAscii),
           {answer("Row", Row), answer("Col", Col), {"KeyAscii", [&KeyAscii](const Token &value) {
                                                         answerKey(KeyAscii, value);
                                                     }}});
}

void ScenarioHost::TableChange() { handle("TableChange", std::nullopt, {}, {}); }

void ScenarioHost::TableKeyDown(std::int16_t &KeyCode, std::int16_t &Shift, std::int16_t &Row,
                                std::int16_t &Col) {
    handle("TableKeyDown", cellOf(Row, Col), " " + nameOf(KeyCode, Shift),
           {answer("KeyCode", KeyCode), answer("Shift", Shift), answer("Row", Row),
            answer("Col", Col)});
}

void ScenarioHost::TableRowChange(std::int16_t &OldRow, std::int16_t &NewRow) {
    handle("TableRowChange", std::nullopt,
           " " + std::to_string(OldRow) + " -> " + std::to_string(NewRow),
           {answer("OldRow", OldRow), answer("NewRow", NewRow)});
}

void ScenarioHost::DoubleClick(std::int16_t &Row, std::int16_t &Col) {
    handle("DoubleClick", cellOf(Row, Col), {}, {answer("Row", Row), answer("Col", Col)});
}

} // namespace tablio::scenario
