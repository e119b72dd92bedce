#include <tablio/testing/core_driver.h>
#include <tablio/testing/player.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tablio::scenario {
namespace {

constexpr std::string_view background = R"(
background
  columns
    "Code" text width 1500
    "Qty"  decimal width 900 format "0.00"
  set Rows 3
  show
  focus enters

scenario "one"
)";

/// What a scenario with this one step (and the lines below it) reports; "" when all is well.
std::string reportOf(const std::string &step) {
    const ScenarioFile file =
        parseScenarios("test", std::string(background) + "  type \"AB\"\n  " + step + "\n");
    CoreDriver driver;
    Player player(driver);
    std::string report;
    for (const Failure &failure : player.play(file, file.scenarios.front()))
        report += std::to_string(failure.line) + ": " + failure.message + "\n";
    return report;
}

TEST(ScenarioLanguage, WhatIsNotAsExpectedIsReportedWithBoth) {
    const struct {
        const char *step;
        const char *expected;
    } cases[] = {
        {"expect editor closed", "the editor is open and shows \"AB|\""},
        {"press Enter ends at 1 0", "expected 1 0, found 1 1"},
        {"expect editor shows \"A|B\"", "expected \"A|B\", found \"AB|\""},
        {"expect editor over cell 2 0", "expected 0 600 1500 300, found 0 300 1500 300"},
        {"expect cell 1 0 shows \"AB\"", "shown: expected \"AB\", found \"\""},
        {"expect cell 1 1 shows \"\" reads \"\"", "read: expected \"\", found \"0\""},
        {"expect notices Rows", "expected Rows, found nothing more"},
        {"expect no events", "expected nothing more, found TableKeyDown 1 0 Shift+A"},
        {"expect events of EditPreValidation\n    EditPreValidation 1 0\n    EditPreValidation 2 0",
         "expected EditPreValidation 2 0, found nothing more"},
        {"expect table\n    | Code | Qty |\n    |  | |\n    | | |", "found:"},
        {"expect control destroyed", "still there"},
        {"call CellFocus 9 0 fails \"column\"", "expected one with \"column\""},
    };
    for (const auto &each : cases) {
        const std::string report = reportOf(each.step);
        EXPECT_TRUE(report.starts_with("12: ")) << each.step << '\n' << report;
        EXPECT_NE(report.find(each.expected), std::string::npos) << each.step << '\n' << report;
    }
}

TEST(ScenarioLanguage, WhatMakesNoSenseOrFailsInAHandlerIsReported) {
    const struct {
        const char *step;
        const char *expected;
    } cases[] = {
        {"tpye \"x\"", "there is no step \"tpye\""},
        {"expect Rowz is 3", "the name Rowz"},
        {"when TableChange at 1 0 do show", "happens at no cell"},
        {"expect events of CellFocuss\n    CellFocuss 1 0", "the name CellFocuss"},
        {"show\n    deeper", "indented too far"},
        {"click cell 1 0", "the editor lies over the cell"},
        {"push cmdLookup", "not to be seen"},
        {"when EditPostValidation do expect cursor at 9 9\n  press Enter",
         "expected 9 9, found 1 0"},
        {"when EditPostValidation do call CellFocus 9 0\n  press Enter", "row 9"},
        {"when EditPostValidation do\n    tpye\n  press Enter", "no step"},
    };
    for (const auto &each : cases) {
        const std::string report = reportOf(each.step);
        EXPECT_NE(report.find(each.expected), std::string::npos) << each.step << '\n' << report;
    }
    try {
        static_cast<void>(parseScenarios("test", "scenario \"a\"\n  show\n\nscenaro \"b\"\n"));
        ADD_FAILURE() << "a file that cannot be read";
    } catch (const ScriptError &error) {
        EXPECT_NE(std::string(error.what()).find("test:4: a section is"), std::string::npos);
    }
}

/// Keeps a key until somebody outside lets it go down.
class OutsideDriver final : public CoreDriver {
public:
    void strike(const KeyStroke &stroke) override { held = stroke; }
    std::string letGo() {
        try {
            if (const auto stroke = std::exchange(held, std::nullopt))
                CoreDriver::strike(*stroke);
        } catch (const std::exception &error) {
            return error.what();
        }
        return {};
    }
    std::optional<KeyStroke> held;
};

TEST(ScenarioLanguage, InputMayComeFromOutsideBetweenTwoSteps) {
    const ScenarioFile file = parseScenarios("test", std::string(background) + R"(
  type "AB" shows "AB|"
  when EditPostValidation throw "no"
  press Enter fails "no"
  type "C\n"
  expect Rows is 0
)");
    OutsideDriver driver;
    Player player(driver);
    std::string played;
    player.begin(file, file.scenarios.front());
    for (std::string failure; player.advance(failure); failure = driver.letGo()) {
        if (driver.held)
            played += std::to_string(player.next()->number) + " ";
    }
    EXPECT_EQ(played, "12 12 14 15 15 ");
    const std::vector<Failure> failures = player.finish();
    ASSERT_EQ(failures.size(), 1U) << "the scenario ends with the error";
    EXPECT_EQ(failures[0].line, 15);
    EXPECT_NE(failures[0].message.find("this throws \"no\""), std::string::npos);
}

} // namespace
} // namespace tablio::scenario
