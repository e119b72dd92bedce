#pragma once

/// What the steps and the expectations of one running scenario share: the driver
/// and the host, the list of failures, and the reading of a step's words.

#include "host.h"
#include "values.h"

#include <tablio/testing/player.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tablio::scenario {

class Stage {
public:
    explicit Stage(Driver &played) : driver(played) {}

    Driver &driver;
    ScenarioHost host;
    std::vector<Failure> failures;

    /// Throw ScriptError while there is no control.
    [[nodiscard]] Tablio &core() const;
    [[nodiscard]] const Screen &screen() const { return core().screen(); }

    /// What has been raised and told so far is nobody's business.
    void forgetAll();
    void fail(const Line &line, std::string message);
    /// Fails unless the two are equal.
    void check(const Line &line, std::string_view what, const std::string &expected,
               const std::string &found);
};

/// The words of one step, taken one after the other. What is not there, or not of the right kind,
/// throws ScriptError.
class Words {
public:
    explicit Words(Tokens tokens) : tokens_(std::move(tokens)) {}

    [[nodiscard]] bool atEnd() const { return at_ == tokens_.size(); }
    [[nodiscard]] const Token &next(std::string_view what);
    template <typename T> [[nodiscard]] T next(std::string_view what) {
        return valueOf<T>(next(what));
    }
    [[nodiscard]] std::string text() { return next<std::string>("a text in quotes"); }
    [[nodiscard]] int number(std::string_view what) { return next<int>(what); }
    [[nodiscard]] CellAddress cell();
    /// Takes the word if it comes next.
    bool take(std::string_view word);
    void require(std::string_view word);
    /// All that is left.
    [[nodiscard]] Tokens rest();
    /// All up to the word, which is taken too.
    [[nodiscard]] Tokens upTo(std::string_view word);
    /// Throws when something is left.
    void end() const;

private:
    Tokens tokens_;
    std::size_t at_ = 0;
};

struct Point {
    Twips x = 0;
    Twips y = 0;
};
/// The middle of the cell. A user can only point at what is to be seen: else ScriptError.
[[nodiscard]] Point pointIn(const Screen &screen, CellAddress cell);

/// What a step does: a call of the driver each.
using Action = std::function<void(Driver &)>;
using Actions = std::vector<Action>;

/// What the words of a step mean; what needs no user is done at once. Throws ScriptError for a line
/// that cannot be understood, and whatever the control throws.
[[nodiscard]] Actions actionsOf(Stage &stage, Tokens tokens, const Line &line);
/// The part of a step behind the word "expect".
void runExpectation(Stage &stage, Words &words, const Line &line);

} // namespace tablio::scenario
