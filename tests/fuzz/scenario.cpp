/// Scenario files of any text: what cannot be read or played says so, and a text in quotes comes
/// back as it was.

#include "fuzz.h"

#include <tablio/testing/core_driver.h>
#include <tablio/testing/player.h>
#include <tablio/testing/script.h>

namespace tablio::fuzz {

void scenario(Bytes &bytes) {
    using namespace tablio::scenario;
    constexpr std::array<const char *, 16> steps{"type \"12\"",
                                                 "press Enter",
                                                 "set Rows 5",
                                                 "set Cols 3",
                                                 "show",
                                                 "focus enters",
                                                 "when EditPreValidation do",
                                                 "  press F2",
                                                 "expect table",
                                                 "    | a | b |",
                                                 "press Ctrl+V",
                                                 "clipboard holds ",
                                                 "call AddRow",
                                                 "expect events",
                                                 "at 1 1 type \"x\" shows \"x|\"",
                                                 "call CellFocus 1 1"};
    std::string text = "scenario \"one\"\n";
    while (!bytes.atEnd()) {
        text += bytes.chance(8) ? bytes.text(30) : std::string("  ") + bytes.pick(steps);
        if (bytes.chance(4))
            text += inQuotes(bytes.text(6));
        text += '\n';
    }
    const std::string quoted = inQuotes(text);
    const Tokens tokens = tokensOf(quoted);
    expect(tokens.size() == 1 && tokens[0].quoted && tokens[0].text == text,
           "a quoted text comes back differently");
    try {
        const ScenarioFile file = parseScenarios("fuzz", text);
        CoreDriver driver;
        Player player(driver);
        for (const Scenario &each : file.scenarios)
            (void)player.play(file, each);
    } catch (const ScriptError &) {
    }
}

} // namespace tablio::fuzz
