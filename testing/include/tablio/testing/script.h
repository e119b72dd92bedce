#pragma once

/// Reads a scenario file into scenarios, steps and blocks; docs/scenarios.md shows the language.
/// It knows the layout (indentation, quotes, comments) and no step's meaning.

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tablio::scenario {

struct Token {
    std::string text;
    bool quoted = false;

    /// Whether this is the bare word.
    [[nodiscard]] bool is(std::string_view word) const { return !quoted && text == word; }
};
using Tokens = std::vector<Token>;

/// One line, and the lines below it that are indented further.
struct Line {
    int number = 0;
    std::string text;
    std::vector<Line> block;
};

struct Scenario {
    std::string name;
    int number = 0;
    std::vector<Line> steps;
};

struct ScenarioFile {
    std::string path;
    /// Steps that every scenario of the file begins with.
    std::vector<Line> background;
    std::vector<Scenario> scenarios;
};

/// A line that cannot be read, or a step that makes no sense where it stands.
class ScriptError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Throws ScriptError with the path and the line in its message.
[[nodiscard]] ScenarioFile parseScenarios(std::string path, std::string_view text);

/// The words and quoted texts of a line. In quotes \n, \t, \" and \\ are written as in C.
[[nodiscard]] Tokens tokensOf(std::string_view line);
/// The text as it stands in a step.
[[nodiscard]] std::string inQuotes(std::string_view text);
/// The trimmed cells of a line such as "| a | b |".
[[nodiscard]] std::vector<std::string> cellsOf(std::string_view line);

} // namespace tablio::scenario
