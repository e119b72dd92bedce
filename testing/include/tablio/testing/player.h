#pragma once

/// Plays scenarios against a driver and reports what was not as expected. Runners use it: one
/// player plays any number of scenarios, each from a fresh control.

#include <tablio/testing/driver.h>
#include <tablio/testing/script.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tablio::scenario {

/// Something that is not as a scenario says, ready to be printed.
struct Failure {
    int line = 0;
    std::string message;
};

class Player {
public:
    /// The driver must live as long as the player.
    explicit Player(Driver &driver);
    ~Player();
    Player(const Player &) = delete;
    Player &operator=(const Player &) = delete;

    /// Plays one scenario from its background on and answers its failures, none when all is well.
    [[nodiscard]] std::vector<Failure> play(const ScenarioFile &file, const Scenario &scenario);

    // The same step by step, for a driver whose input comes from outside, a browser's say: what it
    // is told, it hands on and returns at once, and whoever has carried it out calls `advance`.
    /// Makes a fresh control. File and scenario must live until `finish`.
    void begin(const ScenarioFile &file, const Scenario &scenario);
    /// The step that is being played or comes next; null at the end.
    [[nodiscard]] const Line *next() const noexcept;
    /// Goes on to the next call of the driver or the end of the step; false at the scenario's end.
    /// `failure` is the error that the last call ended with outside, if it did.
    bool advance(std::string_view failure = {});
    /// Whether a handler is playing steps. The driver has to carry these out at once.
    [[nodiscard]] bool isInHandler() const noexcept;
    /// Destroys the control.
    [[nodiscard]] std::vector<Failure> finish();

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

/// The text of a file; throws ScriptError when it cannot be read.
using FileReader = std::function<std::string(const std::string &path)>;
[[nodiscard]] std::string readFile(const std::string &path);

/// What a runner's `main` does: plays the files named on the command line, prints each failure and
/// the sum, and answers the exit code. `--only TEXT` plays those whose names contain the text;
/// `--replay` prints the first failure of each alone, for recorded sessions.
[[nodiscard]] int runScenarioFiles(Driver &driver, int argc, char **argv,
                                   const FileReader &read = readFile);

} // namespace tablio::scenario
