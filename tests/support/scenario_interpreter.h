#pragma once

/// Plays scenarios against a driver and reports what was not as expected. Runners use it: one
/// interpreter plays any number of scenarios, each from a fresh control.

#include "support/scenario_stage.h"

#include <vector>

namespace tablio::scenario {

class Interpreter {
public:
    explicit Interpreter(ScenarioDriver &driver);
    Interpreter(const Interpreter &) = delete;
    Interpreter &operator=(const Interpreter &) = delete;

    /// Plays one scenario from its background on and answers its failures, none when all is well.
    [[nodiscard]] std::vector<Failure> play(const ScenarioFile &file, const Scenario &scenario);

private:
    Stage stage_;
};

/// What a runner's `main` does: plays the files named on the command line, prints each failure and
/// the sum, and answers the exit code. `--only TEXT` plays those whose names contain the
/// text.
[[nodiscard]] int runScenarioFiles(ScenarioDriver &driver, int argc, char **argv);

} // namespace tablio::scenario
