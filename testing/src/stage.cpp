#include "stage.h"

#include <utility>

namespace tablio::scenario {

Tablio &Stage::core() const {
    Tablio *core = driver.core();
    if (core == nullptr)
        throw ScriptError("the control is destroyed");
    return *core;
}

void Stage::forgetAll() {
    static_cast<void>(host.takeEvents());
    driver.face.notices.clear();
    driver.face.warnings.clear();
    driver.face.popUp.reset();
}

void Stage::fail(const Line &line, std::string message) {
    failures.push_back({line.number, line.text + "\n    " + std::move(message)});
}

void Stage::check(const Line &line, std::string_view what, const std::string &expected,
                  const std::string &found) {
    if (expected != found)
        fail(line, std::string(what) + ": expected " + expected + ", found " + found);
}

const Token &Words::next(std::string_view what) {
    if (atEnd())
        throw ScriptError("the step ends where " + std::string(what) + " should follow");
    return tokens_[at_++];
}

CellAddress Words::cell() {
    const int row = number("a row");
    return {row, number("a column")};
}

bool Words::take(std::string_view word) {
    if (atEnd() || !tokens_[at_].is(word))
        return false;
    ++at_;
    return true;
}

void Words::require(std::string_view word) {
    if (!take(word))
        throw ScriptError("the word \"" + std::string(word) + "\" should stand before " +
                          (atEnd() ? "the end" : inQuotes(tokens_[at_].text)));
}

Tokens Words::rest() {
    Tokens left(tokens_.begin() + static_cast<std::ptrdiff_t>(at_), tokens_.end());
    at_ = tokens_.size();
    return left;
}

Tokens Words::upTo(std::string_view word) {
    Tokens taken;
    while (!take(word))
        taken.push_back(next(word));
    return taken;
}

void Words::end() const {
    if (!atEnd())
        throw ScriptError("nothing should follow before " + inQuotes(tokens_[at_].text));
}

} // namespace tablio::scenario
