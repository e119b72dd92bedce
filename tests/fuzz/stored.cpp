/// A control loaded from any text: what is no store says so, and what is one loads a control that
/// works and stores itself so that the same comes back.

#include "fuzz.h"

#include <tablio/tablio.h>
#include <tablio/text_bag.h>

namespace tablio::fuzz {

namespace {

constexpr std::array<const char *, 18> keys{"Rows",
                                            "Cols",
                                            "FixedRows",
                                            "FixedCols",
                                            "CheckBoxes",
                                            "PrimaryColumn",
                                            "Font",
                                            "RowMinHeight",
                                            "StripeColor",
                                            "ColStyle0",
                                            "ColEditType1",
                                            "ColFormat1",
                                            "ColWidth2",
                                            "ColMaxlength0",
                                            "ColDataType0",
                                            "EntryRules",
                                            "HeaderRowHeight",
                                            "WithFixedColumn"};
constexpr std::array<const char *, 8> types{"Long", "Boolean", "String", "Double",
                                            "Font", "Integer", "Empty",  "Word"};
constexpr std::array<const char *, 10> values{"2",     "-1",          "True", "\"###,##0.00\"",
                                              "32768", "99999999999", "3.5",  "\"Sans\" 9",
                                              "",      "\"\\u00e9\""};

/// Lines of a store's own words, or the fuzzer's own text.
std::string storedText(Bytes &bytes) {
    TextBag empty;
    std::string text = empty.text();
    if (bytes.chance(2))
        return text + std::string(bytes.rest());
    while (!bytes.atEnd()) {
        const std::string name = bytes.chance(8) ? bytes.text(12) : bytes.pick(keys);
        if (bytes.chance(4))
            text += name + " " + bytes.pick(types) + " " + std::to_string(bytes.number()) + "\n";
        else
            text += name + " " + bytes.pick(types) + " " + bytes.pick(values) + "\n";
    }
    return text;
}

std::string written(const Tablio &table) {
    TextBag bag;
    table.WriteProperties(bag);
    return bag.text();
}

} // namespace

void stored(Bytes &bytes) {
    TextBag bag;
    try {
        bag = TextBag::parse(storedText(bytes));
    } catch (const Error &) {
        return;
    }
    expect(TextBag::parse(bag.text()).text() == bag.text(), "a store reads itself differently");
    Tablio table;
    table.ReadProperties(bag);
    const std::string once = written(table);
    Tablio second;
    second.ReadProperties(TextBag::parse(once));
    const std::string twice = written(second);
    Tablio third;
    third.ReadProperties(TextBag::parse(twice));
    // The first reading may bring a value into its range; after that nothing moves.
    expect(written(third) == twice,
           "what was stored comes back differently:\n" + twice + written(third));
    try {
        table.Show();
        table.input().focusEntered();
        table.input().typeText("7");
        table.Commit();
    } catch (const Error &) {
        // A form may name a cursor cell that it does not have.
    }
    table.loadSettings(bag);
}

} // namespace tablio::fuzz
