#pragma once

/// Plays scenarios against a driver and reports what was not as expected. Runners use it: one
/// player plays any number of scenarios, each from a fresh control.

#include <tablio/testing/driver.h>
#include <tablio/testing/script.h>

#include <memory>
#include <string>
#include <vector>

namespace tablio::scenario {

class Stage;

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

private:
    std::unique_ptr<Stage> stage_;
};

/// What a runner's `main` does: plays the files named on the command line, prints each failure and
/// the sum, and answers the exit code. `--only TEXT` plays those whose names contain the
/// text.
[[nodiscard]] int runScenarioFiles(Driver &driver, int argc, char **argv);

} // namespace tablio::scenario
