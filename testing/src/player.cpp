#include <tablio/testing/player.h>

#include "stage.h"

#include <cstdio>
#include <exception>
#include <string>
#include <utility>

namespace tablio::scenario {

namespace {

constexpr Twips controlWidth = 9000;
constexpr Twips controlHeight = 4500;

/// Answers false when the scenario cannot go on.
bool played(Stage &stage, const std::vector<Line> &steps) {
    for (const Line &line : steps) {
        try {
            runStep(stage, line);
        } catch (const ScriptError &error) {
            stage.fail(line, error.what());
            return false;
        } catch (const std::exception &error) {
            stage.fail(line, "this throws " + quoted(error.what()));
            return false;
        }
    }
    return true;
}

} // namespace

Player::Player(Driver &driver) : stage_(std::make_unique<Stage>(driver)) {
    stage_->host.runSteps = [this](const std::vector<Line> &steps) {
        for (const Line &line : steps)
            runStep(*stage_, line);
    };
}

Player::~Player() = default;

std::vector<Failure> Player::play(const ScenarioFile &file, const Scenario &scenario) {
    stage_->failures.clear();
    stage_->host.forgetRules();
    Driver &driver = stage_->driver;
    driver.face = RecordingFace();
    driver.create(controlWidth, controlHeight);
    driver.setHost(&stage_->host.relay);
    if (played(*stage_, file.background)) {
        // What the background raised is nobody's business.
        static_cast<void>(stage_->host.takeEvents());
        driver.face.notices.clear();
        driver.face.warnings.clear();
        driver.face.popUp.reset();
        static_cast<void>(played(*stage_, scenario.steps));
    }
    driver.destroy();
    return std::exchange(stage_->failures, {});
}

int runScenarioFiles(Driver &driver, int argc, char **argv) {
    std::string only;
    std::vector<std::string> paths;
    for (int at = 1; at < argc; ++at) {
        const std::string argument = argv[at];
        if (argument == "--only" && at + 1 < argc)
            only = argv[++at];
        else
            paths.push_back(argument);
    }
    if (paths.empty()) {
        std::fprintf(stderr, "usage: %s [--only TEXT] FILE.scenario…\n", argv[0]);
        return 2;
    }
    Player player(driver);
    int count = 0;
    int failed = 0;
    try {
        for (const std::string &path : paths) {
            const ScenarioFile file = readScenarioFile(path);
            for (const Scenario &scenario : file.scenarios) {
                if (scenario.name.find(only) == std::string::npos)
                    continue;
                ++count;
                const std::vector<Failure> failures = player.play(file, scenario);
                failed += failures.empty() ? 0 : 1;
                for (const Failure &failure : failures)
                    std::printf("%s:%d: in \"%s\"\n    %s\n", path.c_str(), failure.line,
                                scenario.name.c_str(), failure.message.c_str());
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
