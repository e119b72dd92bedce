/// `tablio_recorded_session FILE KEYS [--masked]` lets an operator without a plan type so many keys
/// into a form whose host refuses and changes some of it, and writes down what was recorded. The
/// runners of scenarios play it: each must hear what was heard here.

#include <tablio/testing/core_driver.h>
#include <tablio/testing/recorder.h>

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <random>
#include <string_view>

namespace {

using namespace tablio;

class Host final : public HostEvents {
    void EditPreValidation(std::int16_t &Row, std::int16_t &Col, bool &Cancel) override {
        Cancel = Row % 5 == 0 && Col == 1;
    }
    void EditPostValidation(std::int16_t & /*Row*/, std::int16_t & /*Col*/, bool &Valid,
                            std::string & /*OldData*/, std::string &NewData,
                            std::int16_t & /*LastKey*/) override {
        Valid = Valid && !NewData.starts_with("X");
    }
    void CellKeyPress(std::int16_t & /*Row*/, std::int16_t & /*Col*/,
                      std::int16_t &KeyAscii) override {
        KeyAscii = KeyAscii == 'q' ? 'Q' : KeyAscii;
    }
    void TableKeyDown(std::int16_t &KeyCode, std::int16_t & /*Shift*/, std::int16_t & /*Row*/,
                      std::int16_t & /*Col*/) override {
        KeyCode = KeyCode == Key::Insert ? 0 : KeyCode;
    }
};

void setUp(Tablio &grid) {
    grid.setEntryRules(TEntryRules::Careful);
    grid.setRows(12);
    grid.setCols(5);
    using enum TColumnType;
    const auto column = [&](int col, const char *caption, TColumnType type, const char *format) {
        grid.SetColProperty(col, caption, 1500, TColumnStyle::ColumnInput, type,
                            TColumnAlignment::ColumnLeft, TColumnAlignment::ColumnLeft, 12, format);
    };
    column(0, "Code", ColumnString, "");
    column(1, "Qty", ColumnDecimal, "###,##0.00");
    column(2, "Due", ColumnDate, "##/##/####");
    column(3, "Unit", ColumnCombo, "");
    column(4, "Note", ColumnString, "");
    grid.setCheckBoxes(1);
    grid.setTextMatrix(1, 0, "first");
    grid.setTextMatrix(2, 1, "1250.5");
}

void strike(scenario::Driver &driver, std::mt19937 &random) {
    constexpr std::string_view typed = "abcXq 0123456789.,-/";
    constexpr KeyCode keys[] = {Key::Enter,  Key::Enter,   Key::Enter, Key::Left,   Key::Right,
                                Key::Up,     Key::Down,    Key::Home,  Key::End,    Key::Back,
                                Key::F2,     Key::Escape,  Key::Space, Key::Delete, Key::Insert,
                                Key::PageUp, Key::PageDown};
    const auto below = [&](std::size_t count) {
        return static_cast<std::size_t>(random() % count);
    };
    if (below(40) == 0)
        return driver.enterText("é日");
    if (below(40) == 0) {
        for (const char key : {'C', 'V'})
            driver.strike(
                {static_cast<KeyCode>(key), Shift::Ctrl, static_cast<char32_t>(key & 0x1F)});
        return;
    }
    if (below(4) == 0) {
        const KeyCode key = keys[below(std::size(keys))];
        if (key == Key::Escape && !driver.core()->IsEditing())
            return; // It closes a dialog.
        const bool hasCharacter =
            key == Key::Enter || key == Key::Back || key == Key::Escape || key == Key::Space;
        return driver.strike(
            {key, Shift::None, hasCharacter ? static_cast<char32_t>(key) : char32_t{0}});
    }
    const char sign = typed[below(typed.size())];
    const bool isLetter = sign >= 'a' && sign <= 'z';
    const bool isCapital = sign == 'X';
    constexpr std::string_view signs = ",-./";
    KeyCode key = isLetter ? static_cast<KeyCode>(sign - 32) : static_cast<KeyCode>(sign);
    if (const std::size_t at = signs.find(sign); at != std::string_view::npos)
        key = static_cast<KeyCode>(188 + at);
    driver.strike({key, isCapital ? Shift::Shift : Shift::None, static_cast<char32_t>(sign)});
}

} // namespace

int main(int argc, char **argv) {
    if (argc < 3)
        return 2;
    scenario::CoreDriver driver;
    driver.create(9000, 4500);
    driver.show();
    setUp(*driver.core());
    Host host;
    driver.setHost(&host);
    const bool isMasked = argc > 3 && std::string_view(argv[3]) == "--masked";
    const scenario::Recorder recorder(*driver.core(), isMasked
                                                          ? scenario::Recorder::Texts::Masked
                                                          : scenario::Recorder::Texts::AsTyped);
    driver.enterFocus();
    std::mt19937 random(7);
    for (int keys = std::atoi(argv[2]); keys > 0; --keys)
        strike(driver, random);
    driver.leaveFocus();
    std::ofstream(argv[1], std::ios::binary) << recorder.scenario("an operator without a plan");
    return 0;
}
