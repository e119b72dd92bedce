#include "recorded_steps.h"

#include "values.h"

#include "model/text/utf16.h"

#include <cstdlib>
#include <utility>

namespace tablio::scenario {

namespace {

/// A line of typed text is not longer.
constexpr std::size_t mostTyped = 40;

bool isSame(const KeyStroke &one, const KeyStroke &other) {
    return one.key == other.key && one.shift == other.shift && one.character == other.character;
}

bool typesByItself(const KeyStroke &stroke) {
    return stroke.character >= U' ' && isSame(keyStrokeFor(stroke.character), stroke);
}

std::string wordsFor(const KeyStroke &stroke) {
    const std::string name = nameOf(stroke.key, stroke.shift);
    std::string press = "press " + name;
    const KeyStroke usual = keyStrokeOf(name);
    // A key that the control has dealt with types nothing, whatever stands on it.
    if (usual.character == stroke.character || (stroke.character == 0 && usual.character <= U' '))
        return press;
    std::string typed;
    if (stroke.character != 0)
        utf16::append(typed, stroke.character);
    return press + " types " + inQuotes(typed);
}

} // namespace

void RecordedSteps::begin(std::string words) { begin(std::move(words), Kind::Other); }

void RecordedSteps::begin(std::string words, Kind kind) {
    Step step;
    step.kind = kind;
    step.words = std::move(words);
    steps_.push_back(std::move(step));
}

RecordedSteps::Step *RecordedSteps::last(Kind kind) noexcept {
    return !steps_.empty() && steps_.back().kind == kind ? &steps_.back() : nullptr;
}

/// What is answered to the last of some typed characters belongs to it alone.
void RecordedSteps::prepare(std::string line) {
    if (Step *const typed = last(Kind::Typed); typed != nullptr && typed->lastTyped > 0) {
        Step own;
        own.kind = Kind::Typed;
        own.typed = typed->typed.substr(typed->lastTyped);
        own.words = "type " + inQuotes(own.typed);
        const auto events = typed->events.begin() + static_cast<std::ptrdiff_t>(typed->lastEvents);
        own.events.assign(std::make_move_iterator(events),
                          std::make_move_iterator(typed->events.end()));
        typed->events.erase(events, typed->events.end());
        typed->typed.resize(typed->lastTyped);
        typed->words = "type " + inQuotes(typed->typed);
        steps_.push_back(std::move(own));
    }
    steps_.back().before.push_back(std::move(line));
}

void RecordedSteps::heard(std::string event) {
    if (!steps_.empty())
        steps_.back().events.push_back(std::move(event));
}

void RecordedSteps::keyDown(KeyCode key, ShiftState shift) {
    const KeyStroke stroke{key, shift, 0};
    begin(wordsFor(stroke), Kind::Key);
    steps_.back().stroke = stroke;
}

void RecordedSteps::keyPress(char32_t character) {
    Step *const key = last(Kind::Key);
    if (key == nullptr || key->stroke.character != 0) {
        std::string text;
        utf16::append(text, character);
        begin("enter " + inQuotes(text));
        return;
    }
    key->stroke.character = character;
    key->words = wordsFor(key->stroke);
    if (typesByItself(key->stroke))
        takeTyped(character);
}

/// The last step is a key that typed this: it goes on a line of typed text, or begins one.
void RecordedSteps::takeTyped(char32_t character) {
    Step key = std::move(steps_.back());
    steps_.pop_back();
    if (last(Kind::Typed) == nullptr || steps_.back().typed.size() >= mostTyped ||
        !key.before.empty()) {
        begin({}, Kind::Typed);
        steps_.back().before = std::move(key.before);
    }
    Step &typed = steps_.back();
    typed.lastTyped = typed.typed.size();
    typed.lastEvents = typed.events.size();
    utf16::append(typed.typed, character);
    typed.words = "type " + inQuotes(typed.typed);
    typed.events.insert(typed.events.end(), std::make_move_iterator(key.events.begin()),
                        std::make_move_iterator(key.events.end()));
}

void RecordedSteps::entered(std::string_view text) {
    if (Step *const composition = last(Kind::Composition)) {
        composition->words = "compose " + inQuotes(text);
        composition->kind = Kind::Other;
    } else {
        begin("enter " + inQuotes(text));
    }
}

void RecordedSteps::pressed(std::string words, std::string drag) {
    begin(std::move(words), Kind::Press);
    steps_.back().drag = std::move(drag);
}

void RecordedSteps::released(Twips distance) {
    Step *const press = last(Kind::Press);
    if (press == nullptr)
        return;
    press->kind = Kind::Click;
    if (!press->drag.empty() && distance != 0) {
        press->kind = Kind::Other;
        press->words = press->drag + std::to_string(distance);
    }
}

void RecordedSteps::doubleClicked() {
    Step *const click = last(Kind::Click);
    if (click == nullptr || !click->words.starts_with("click "))
        return;
    click->words = "double-" + click->words;
    click->kind = Kind::Other;
}

std::string RecordedSteps::text(bool withEvents) const {
    std::string text;
    for (const Step &step : steps_) {
        for (const std::string &line : step.before)
            text += "  " + line + "\n";
        text += "  " + step.words;
        if (withEvents)
            text += step.events.empty() ? "\n  expect no events" : " raises";
        text += "\n";
        for (std::size_t at = 0; withEvents && at < step.events.size(); ++at)
            text += "    " + step.events[at] + "\n";
    }
    return text;
}

} // namespace tablio::scenario
