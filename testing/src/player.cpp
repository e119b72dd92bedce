#include <tablio/testing/player.h>

#include "members.h"
#include "stage.h"

#include <cstdio>
#include <exception>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <utility>

namespace tablio::scenario {

namespace {

constexpr Twips controlWidth = 9000;
constexpr Twips controlHeight = 4500;

/// One step that is being played. Failed expectations are added to the stage; ScriptError for a
/// line that cannot be understood, and whatever the control throws, come out of `advance`.
class StepPlay {
public:
    /// Both must live as long as this object.
    StepPlay(Stage &stage, const Line &line) : stage_(stage), line_(line) {}

    /// Reads the step, or makes its next call of the driver, or after the last one compares what is
    /// expected behind it. False when the step is through. The failure is what the last call came
    /// to where it was carried out, if it did not throw it.
    bool advance(std::string_view failure = {});

private:
    void read();
    void failError(const std::string &found) {
        stage_.check(line_, "error", "one with " + inQuotes(*error_), found);
    }

    Stage &stage_;
    const Line &line_;
    bool isRead_ = false;
    Actions actions_;
    std::size_t done_ = 0;
    Tokens behind_;
    /// A part of the error that is expected.
    std::optional<std::string> error_;
};

/// Expectations may stand behind a step: `fails "…"`, what the editor `shows "…"`, where the cursor
/// `ends at ROW COL`, what the step `writes "…"` to the cell where the cursor stood, and that it
/// `raises` just the events below. Steps that prepare answers keep theirs.
bool takeBehind(Tokens &tokens, std::string_view word, std::size_t count, Tokens &behind) {
    const std::size_t size = tokens.size();
    if (size < count + 2 || !tokens[size - count - 1].is(word) || tokens.front().is("when") ||
        tokens.front().is("once") || (tokens.front().is("expect") && word != "fails"))
        return false;
    behind.assign(tokens.end() - static_cast<std::ptrdiff_t>(count), tokens.end());
    tokens.resize(size - count - 1);
    return true;
}

void StepPlay::read() {
    Tokens tokens = tokensOf(line_.text);
    if (tokens.size() > 3 && tokens[0].is("at")) {
        static_cast<void>(stage_.core());
        callMember(stage_.driver, "CellFocus", {tokens[1], tokens[2]});
        tokens.erase(tokens.begin(), tokens.begin() + 3);
    }
    if (takeBehind(tokens, "fails", 1, behind_)) {
        error_ = behind_[0].text;
        behind_.clear();
    } else if (takeBehind(tokens, "shows", 1, behind_)) {
        behind_.insert(behind_.begin(), {{"editor"}, {"shows"}});
    } else if (takeBehind(tokens, "ends", 3, behind_)) {
        behind_.insert(behind_.begin(), {"cursor"});
    } else if (takeBehind(tokens, "writes", 1, behind_) ||
               takeBehind(tokens, "writes", 3, behind_)) {
        const CellAddress cell = stage_.screen().currentCell().value_or(CellAddress{});
        behind_.insert(
            behind_.begin(),
            {{"cell"}, {std::to_string(cell.row)}, {std::to_string(cell.col)}, {"shows"}});
    } else if (takeBehind(tokens, "raises", 0, behind_)) {
        behind_ = {{"events"}};
        static_cast<void>(stage_.host.takeEvents());
    }
    actions_ = actionsOf(stage_, std::move(tokens), line_);
}

bool StepPlay::advance(std::string_view failure) {
    try {
        if (!failure.empty())
            throw Error(std::string(failure));
        if (!isRead_) {
            isRead_ = true;
            read();
            if (!actions_.empty())
                return true;
        } else if (done_ < actions_.size()) {
            // Who destroys the control while the button is down never hears of its release.
            const Action &action = actions_[done_++];
            if (stage_.driver.core() != nullptr)
                action(stage_.driver);
            return true;
        }
    } catch (const ScriptError &) {
        throw;
    } catch (const std::exception &error) {
        if (!error_)
            throw;
        if (std::string_view(error.what()).find(*error_) == std::string_view::npos)
            failError(inQuotes(error.what()));
        return false;
    }
    if (error_)
        failError("none");
    if (!behind_.empty()) {
        Words words(std::move(behind_));
        runExpectation(stage_, words, line_);
    }
    return false;
}

} // namespace

struct Player::Parts {
    explicit Parts(Driver &driver) : stage(driver) {}

    Stage stage;
    /// The background's steps, then the scenario's.
    std::vector<const Line *> lines;
    std::size_t backgroundEnd = 0;
    /// The step that is played or comes next.
    std::size_t at = 0;
    std::optional<StepPlay> step;
};

Player::Player(Driver &driver) : parts_(std::make_unique<Parts>(driver)) {
    parts_->stage.host.runSteps = [this](const std::vector<Line> &steps) {
        for (const Line &line : steps) {
            StepPlay step(parts_->stage, line);
            while (step.advance()) {
            }
        }
    };
}

Player::~Player() = default;

void Player::begin(const ScenarioFile &file, const Scenario &scenario) {
    Parts &parts = *parts_;
    parts.stage.failures.clear();
    parts.stage.host.forgetRules();
    parts.stage.host.noteAnswered(false);
    parts.lines.clear();
    for (const auto *const steps : {&file.background, &scenario.steps}) {
        parts.backgroundEnd = parts.lines.size();
        for (const Line &line : *steps)
            parts.lines.push_back(&line);
    }
    parts.at = 0;
    parts.step.reset();
    Driver &driver = parts.stage.driver;
    driver.face = RecordingFace();
    driver.create(controlWidth, controlHeight);
    driver.events = &parts.stage.host;
    driver.setHost(parts.stage.host.relay.get());
}

const Line *Player::next() const noexcept {
    return parts_->at < parts_->lines.size() ? parts_->lines[parts_->at] : nullptr;
}

bool Player::advance(std::string_view failure) {
    Parts &parts = *parts_;
    const Line *const line = next();
    if (line == nullptr)
        return false;
    if (!parts.step && parts.at == parts.backgroundEnd)
        parts.stage.forgetAll();
    try {
        if (!parts.step)
            parts.step.emplace(parts.stage, *line);
        if (!parts.step->advance(failure)) {
            parts.step.reset();
            ++parts.at;
        }
    } catch (const ScriptError &error) {
        parts.stage.fail(*line, error.what());
        parts.at = parts.lines.size();
    } catch (const std::exception &error) {
        parts.stage.fail(*line, "this throws " + inQuotes(error.what()));
        parts.at = parts.lines.size();
    }
    return next() != nullptr;
}

bool Player::isInHandler() const noexcept { return parts_->stage.host.isRunning(); }

std::vector<Failure> Player::finish() {
    parts_->step.reset();
    parts_->stage.driver.destroy();
    return std::exchange(parts_->stage.failures, {});
}

std::vector<Failure> Player::play(const ScenarioFile &file, const Scenario &scenario) {
    begin(file, scenario);
    while (advance()) {
    }
    return finish();
}

std::string readFile(const std::string &path) {
    std::ifstream stream(path, std::ios::binary);
    if (!stream)
        throw ScriptError(path + ": this file cannot be read");
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

int runScenarioFiles(Driver &driver, int argc, char **argv, const FileReader &read) {
    std::string only;
    bool isReplay = false;
    std::vector<std::string> paths;
    for (int at = 1; at < argc; ++at) {
        const std::string argument = argv[at];
        if (argument == "--only" && at + 1 < argc)
            only = argv[++at];
        else if (argument == "--replay")
            isReplay = true;
        else
            paths.push_back(argument);
    }
    if (paths.empty()) {
        std::fprintf(stderr, "usage: %s [--only TEXT] [--replay] FILE.scenario…\n", argv[0]);
        return 2;
    }
    Player player(driver);
    int count = 0;
    int failed = 0;
    try {
        for (const std::string &path : paths) {
            const ScenarioFile file = parseScenarios(path, read(path));
            for (const Scenario &scenario : file.scenarios) {
                if (scenario.name.find(only) == std::string::npos)
                    continue;
                ++count;
                const std::vector<Failure> failures = player.play(file, scenario);
                failed += failures.empty() ? 0 : 1;
                for (const Failure &failure : failures) {
                    std::printf("%s:%d: in \"%s\"\n    %s\n", path.c_str(), failure.line,
                                scenario.name.c_str(), failure.message.c_str());
                    if (isReplay) // What comes after the first difference follows from it.
                        break;
                }
            }
        }
    } catch (const ScriptError &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 2;
    }
    std::printf("%d scenarios, %d failed\n", count, failed);
    return failed == 0 && count > 0 ? 0 : 1;
}

} // namespace tablio::scenario
