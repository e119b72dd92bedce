#include <tablio/testing/script.h>

#include "model/text/trim.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tablio::scenario {

namespace {

std::size_t indentOf(std::string_view line) {
    const std::size_t indent = line.find_first_not_of(' ');
    if (line[indent] == '\t')
        throw ScriptError("indent with blanks, not with tabs");
    return indent;
}

bool saysNothing(std::string_view line) {
    const std::string_view text = trimmed(line);
    return text.empty() || text.front() == '#';
}

class Parser {
public:
    explicit Parser(ScenarioFile &file) : file_(file) {}

    void add(int number, std::string_view line) {
        if (saysNothing(line))
            return;
        const std::size_t indent = indentOf(line);
        Line read{number, std::string(trimmed(line)), {}};
        if (indent == 0)
            beginSection(read);
        else
            addStep(std::move(read), indent);
    }

private:
    void beginSection(const Line &line) {
        const Tokens tokens = tokensOf(line.text);
        stepIndent_ = 0;
        if (tokens.size() == 1 && tokens[0].is("background") && file_.scenarios.empty()) {
            section_ = &file_.background;
        } else if (tokens.size() == 2 && tokens[0].is("scenario") && tokens[1].quoted) {
            file_.scenarios.push_back({tokens[1].text, line.number, {}});
            section_ = &file_.scenarios.back().steps;
        } else {
            throw ScriptError("a section is: background, at the top, or: scenario \"name\"");
        }
    }

    void addStep(Line line, std::size_t indent) {
        if (section_ == nullptr)
            throw ScriptError("this step stands outside of a scenario");
        if (stepIndent_ == 0)
            stepIndent_ = indent;
        if (indent < stepIndent_)
            throw ScriptError("this step is indented less than the ones above");
        if (indent == stepIndent_) {
            section_->push_back(std::move(line));
            return;
        }
        if (section_->empty())
            throw ScriptError("this line belongs to no step");
        section_->back().block.push_back(std::move(line));
    }

    ScenarioFile &file_;
    std::vector<Line> *section_ = nullptr;
    std::size_t stepIndent_ = 0;
};

constexpr std::pair<char, char> escapes[] = {
    {'n', '\n'}, {'r', '\r'}, {'t', '\t'}, {'"', '"'}, {'\\', '\\'}};

char escaped(char character) {
    for (const auto &[name, meant] : escapes) {
        if (name == character)
            return meant;
    }
    throw ScriptError(std::string("\\") + character + " means nothing in a text");
}

Token quotedToken(std::string_view &rest) {
    Token token{{}, true};
    for (std::size_t at = 1; at < rest.size(); ++at) {
        if (rest[at] == '"') {
            rest.remove_prefix(at + 1);
            return token;
        }
        if (rest[at] == '\\' && at + 1 < rest.size())
            token.text += escaped(rest[++at]);
        else
            token.text += rest[at];
    }
    throw ScriptError("a text has no closing quote");
}

} // namespace

ScenarioFile parseScenarios(std::string path, std::string_view text) {
    ScenarioFile file;
    file.path = std::move(path);
    Parser parser(file);
    int number = 0;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        ++number;
        try {
            parser.add(number, text.substr(0, end));
        } catch (const ScriptError &error) {
            throw ScriptError(file.path + ":" + std::to_string(number) + ": " + error.what());
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    if (file.scenarios.empty())
        throw ScriptError(file.path + ": there is no scenario in this file");
    return file;
}

Tokens tokensOf(std::string_view line) {
    Tokens tokens;
    for (line = trimmed(line); !line.empty(); line = trimmed(line)) {
        if (line.front() == '"') {
            tokens.push_back(quotedToken(line));
        } else {
            const std::size_t end = std::min(line.find_first_of(" \""), line.size());
            tokens.push_back({std::string(line.substr(0, end)), false});
            line.remove_prefix(end);
        }
    }
    return tokens;
}

std::string inQuotes(std::string_view text) {
    std::string result = "\"";
    for (const char character : text) {
        const auto *const escape =
            std::find_if(std::begin(escapes), std::end(escapes),
                         [&](const auto &each) { return each.second == character; });
        if (escape != std::end(escapes))
            result += {'\\', escape->first};
        else
            result += character;
    }
    return result + '"';
}

std::vector<std::string> cellsOf(std::string_view line) {
    if (line.size() < 2 || line.front() != '|' || line.back() != '|')
        throw ScriptError("a row of a table begins and ends with |");
    std::vector<std::string> cells;
    for (line.remove_prefix(1); !line.empty();) {
        const std::size_t end = line.find('|');
        cells.emplace_back(trimmed(line.substr(0, end)));
        line.remove_prefix(end + 1);
    }
    return cells;
}

} // namespace tablio::scenario
