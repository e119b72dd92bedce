#include "host.h"

#include "values.h"

#include "model/text/utf16.h"

#include <tablio/errors.h>
#include <tablio/members.h>

#include <algorithm>

namespace tablio::scenario {

namespace {

const Event &eventNamed(std::string_view name) {
    try {
        return findEvent(name);
    } catch (const UnknownMember &error) {
        throw ScriptError(error.what());
    }
}

/// Where the argument stands, or nothing.
std::optional<std::size_t> placeOf(const Event &event, std::string_view argument) {
    const Argument *const found = findBy(event.arguments, &Argument::name, argument);
    if (found == nullptr)
        return std::nullopt;
    return static_cast<std::size_t>(found - event.arguments.data());
}

std::optional<CellAddress> cellOf(const Event &event, std::span<const Value> arguments) {
    const auto row = placeOf(event, "Row");
    if (!row)
        return std::nullopt;
    return CellAddress{arguments[*row].toLong(), arguments[*placeOf(event, "Col")].toLong()};
}

std::string characterText(std::int16_t keyAscii) {
    if (keyAscii >= 0 && keyAscii < ' ')
        return std::to_string(keyAscii);
    std::string text;
    utf16::append(text, static_cast<std::uint16_t>(keyAscii));
    return inQuotes(text);
}

/// The arguments but the row and the column, as scenarios write them.
std::string detailsOf(std::string_view event, std::span<const Value> arguments) {
    const auto text = [&](std::size_t at) { return arguments[at].toText(); };
    if (event == "EditOnChange")
        return " " + inQuotes(text(2));
    if (event == "EditPostValidation")
        return " Valid " + text(2) + " " + inQuotes(text(3)) + " -> " + inQuotes(text(4)) +
               " LastKey " + text(5);
    if (event == "CellKeyPress")
        return " " + characterText(arguments[2].toInteger());
    if (event == "TableKeyDown")
        return " " + nameOf(arguments[0].toInteger(), arguments[1].toInteger());
    if (event == "TableRowChange")
        return " " + text(0) + " -> " + text(1);
    return {};
}

/// A character is answered as a text, a code as a number.
Value answerFor(const Argument &argument, const Token &token) {
    if (argument.name != "KeyAscii" || !token.quoted)
        return valueFor(argument.type, token);
    return static_cast<std::int16_t>(
        static_cast<std::uint16_t>(utf16::characters(token.text).at(0)));
}

} // namespace

void ScenarioHost::checkEvent(std::string_view name) { static_cast<void>(eventNamed(name)); }

void ScenarioHost::add(HostRule rule) {
    const Event &event = eventNamed(rule.event);
    if (rule.cell && !placeOf(event, "Row"))
        throw ScriptError(rule.event + " happens at no cell");
    if (rule.answer && !placeOf(event, rule.answer->first))
        throw ScriptError(rule.event + " has no argument " + rule.answer->first);
    rules_.push_back(std::make_shared<HostRule>(std::move(rule)));
}

std::string ScenarioHost::lineOf(MemberNumber number, std::span<const Value> arguments) {
    const Event &event = *findBy(tablio::events(), &Event::number, number);
    std::string line(event.name);
    if (const auto cell = cellOf(event, arguments))
        line += " " + std::to_string(cell->row) + " " + std::to_string(cell->col);
    return line + detailsOf(event.name, arguments);
}

void ScenarioHost::event(MemberNumber number, std::span<Value> arguments) {
    const Event &event = *findBy(tablio::events(), &Event::number, number);
    const auto note = [&] {
        events_.push_back({std::string(event.name), lineOf(number, arguments)});
    };
    if (!notesAnswered_)
        note();
    answer(event, arguments);
    if (notesAnswered_)
        note();
}

void ScenarioHost::answer(const Event &event, std::span<Value> arguments) {
    const std::optional<CellAddress> cell = cellOf(event, arguments);
    std::vector<std::string> answered;
    for (std::size_t at = 0; at < rules_.size(); ++at) {
        const std::shared_ptr<HostRule> rule = rules_[at];
        if (rule->event != event.name || (rule->cell && rule->cell != cell) || rule->usedUp ||
            rule->running)
            continue;
        // Of several answers for one event each, the next one waits for the next event.
        if (rule->once && rule->answer) {
            if (std::find(answered.begin(), answered.end(), rule->answer->first) != answered.end())
                continue;
            answered.push_back(rule->answer->first);
        }
        rule->usedUp = rule->once;
        if (rule->answer) {
            const std::size_t place = *placeOf(event, rule->answer->first);
            arguments[place] = answerFor(event.arguments[place], rule->answer->second);
        }
        if (!rule->steps.empty()) {
            const std::shared_ptr<void> done(nullptr, [this, rule](void *) {
                rule->running = false;
                --running_;
            });
            rule->running = true;
            ++running_;
            runSteps(rule->steps);
        }
        if (rule->error)
            throw HostError(*rule->error);
    }
}

} // namespace tablio::scenario
