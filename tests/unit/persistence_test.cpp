#include "control/inside.h"

#include <tablio/dispatch.h>
#include <tablio/settings_text.h>
#include <tablio/tablio.h>
#include <tablio/text_bag.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace tablio {
namespace {

std::string saved(const Tablio &table) {
    TextBag bag;
    table.WriteProperties(bag);
    return bag.text().substr(bag.text().find('\n') + 1);
}

void load(Tablio &table, const std::string &lines) {
    table.ReadProperties(TextBag::parse("Tablio properties 1\n" + lines));
}

/// The six list entries of a column.
std::string listEntries(Tablio &table, int col) {
    std::string text;
    for (const auto list :
         {ColumnSettings::Style, ColumnSettings::EditType, ColumnSettings::Format,
          ColumnSettings::MaxLength, ColumnSettings::DataType, ColumnSettings::CalcStyle})
        text += Inside::of(table).state.columns.text(list, col) + "|";
    return text;
}

const std::string storedControl = R"(BackColorFixed Long -2147483633
WordWrap Boolean False
GridPopUpMenu Boolean False
Font Font "Arial" 9 italic
ForeColorFixed Long -2147483630
Cols Long 4
Rows Long 12
FixedCols Long 1
FixedRows Long 1
BackColorData Long 1
GridColorData Long 2
GridColorFixed Long 3
ForeColorData Long -2147483630
BackColorMarkRow Long 4
ForeColorMarkRow Long 5
WithFixedColumn Boolean True
HeaderRowHeight Long 300
BackColor Long 6
PrimaryColumn Long 1
HeaderFontBold Boolean True
CheckBoxes Integer -1
Enabled Boolean False
RowMinHeight Long 0
StripeColor Long 14745568
CheckBoxColor Long 7
EntryRules Long 1
TabWalks Boolean False
ColStyle0 Double 3
ColTextHeader0 String "No."
ColDataAlignment0 Integer 1
ColHeaderAlignment0 Integer 1
ColWidth0 Long 500
ColStyle1 Double 0
ColEditType1 Double 1
ColDataType1 Double 1
ColCalcStyle1 Double 1
ColFormat1 String "###,##0.00"
ColMaxLength1 String "12"
ColTextHeader1 String "Gr\u{F6}\u{DF}e"
ColDataAlignment1 Integer 7
ColHeaderAlignment1 Integer 4
ColWidth1 Long 2000
)";

/// What a member holds whose indexes stand behind its name: "Rows", "ColWidth1", "TextMatrix10".
Value held(Tablio &table, const std::string &name) {
    const std::size_t end = std::min(name.find_first_of("0123456789"), name.size());
    Values index;
    for (const char digit : name.substr(end))
        index.push_back(digit - '0');
    return Dispatch(table).get(name.substr(0, end), index);
}

TEST(Persistence, AStoredControlIsLoadedAndSavedAgain) {
    const TextBag bag = TextBag::parse("Tablio properties 1\n" + storedControl +
                                       "ColWidth2 Long 960\nColTextHeader2 String \"ticks\"\n");
    Tablio table;
    Tablio used;
    used.setCols(9);
    used.setFixedCols(2);
    for (Tablio *target : {&table, &used}) {
        target->ReadProperties(bag);
        EXPECT_EQ(saved(*target).substr(0, storedControl.size()), storedControl);
        for (const std::string &name :
             TextBag::parse("Tablio properties 1\n" + storedControl).names()) {
            if (name != "Cols") {
                EXPECT_TRUE(comparesEqual(held(*target, name), bag.readProperty(name, {}))) << name;
            }
        }
        // The tick column is counted, but nothing of its own is loaded.
        EXPECT_EQ(target->Cols(), 3);
        EXPECT_EQ(target->ColWidth(2), 300);
        EXPECT_EQ(target->ColTextHeader(2), "");
        EXPECT_EQ(Inside::of(*target).state.columns.length(), 2);
        EXPECT_EQ(target->TextMatrix(11, 0), "11");
        EXPECT_EQ(Inside::of(*target).state.widgets.txtEdit.look().Font, table.Font());
        EXPECT_TRUE(target->SetStatusCell());
        EXPECT_TRUE(Inside::of(*target).state.grid.view.Redraw());
    }
}

TEST(Persistence, AnEmptyStoreGivesTheDefaults) {
    Tablio table;
    table.setCols(4);
    table.setFixedCols(2);
    load(table, "");
    // The button text colour differs from every colour that is not to be stored.
    EXPECT_EQ(saved(table), "ForeColorFixed Long -2147483630\n"
                            "ForeColorData Long -2147483630\n"
                            "HeaderRowHeight Long 700\nRowMinHeight Long 285\n");
    EXPECT_EQ(listEntries(table, 0), "2|0||64|0|0|");
}

TEST(Persistence, StoredFormsThatAreNotTakenAtTheirWord) {
    const struct {
        const char *lines;
        std::vector<std::pair<const char *, const char *>> expected;
    } cases[] = {
        {"ColDataAlignment0 Integer 9\nColHeaderAlignment0 Integer 9",
         {{"ColDataAlignment0", "1"}, {"ColHeaderAlignment0", "1"}}},
        {"Cols Long 2\nColMaxlength0 String \"7\"\nCOLMAXLENGTH1 Integer 8",
         {{"ColMaxLength0", "7"}, {"ColMaxLength1", "8"}}},
        // The tick column is counted off.
        {"Cols Long 6\nCheckBoxes Integer -1\nColWidth4 Long 999",
         {{"Cols", "5"}, {"ColWidth4", "300"}}},
        {"Cols Long 2\nCheckBoxes Integer 3\nColWidth3 Long 9\nColWidth4 Long 8",
         {{"Cols", "5"}, {"ColWidth3", "9"}, {"ColWidth4", "300"}}},
        {"Cols String \"many\"\nCheckBoxes Integer 3", {{"Cols", "3"}}},
        // Counts as text, and such as the grid refuses.
        {"Cols String \" 3 \"\nRows String \"4\"", {{"Cols", "3"}, {"Rows", "4"}}},
        {"Cols Long 40000\nColWidth1 Long 77", {{"Cols", "2"}, {"ColWidth1", "77"}}},
        {"Rows Long 3\nFixedRows Long 4\nColWidth0 Long 5",
         {{"FixedRows", "1"}, {"ColWidth0", "5"}}},
        // The font of the headers is set only where the grid's is bold.
        {"Font Font \"\" 9 bold\nCols Long 2",
         {{"CellFontBold01", "False"}, {"CellFontBold11", "True"}}},
        {"HeaderFontBold Boolean True", {{"CellFontBold00", "False"}}},
        {"Rows Long 3\nFixedRows Long 1\nColStyle0 Integer 3",
         {{"TextMatrix10", "1"}, {"TextMatrix20", "2"}}},
        {"Enabled Integer 0\nWordWrap String \"false\"",
         {{"Enabled", "False"}, {"WordWrap", "False"}}},
    };
    for (const auto &c : cases) {
        Tablio table;
        load(table, c.lines);
        for (const auto &[member, text] : c.expected)
            EXPECT_EQ(held(table, member).toText(), text) << c.lines << ", " << member;
    }
    Tablio table;
    load(table, "ColStyle0 String \"x\"\nColEditType0 Double 2.5");
    EXPECT_EQ(listEntries(table, 0), "x|2.5||64|0|0|") << "list texts are kept";
}

/// A store in which one key holds something strange, or which refuses it.
class StrangeBag final : public PropertyBag {
public:
    StrangeBag(const TextBag &bag, std::string key, Value value, bool refuses = false)
        : bag_(bag), key_(std::move(key)), value_(std::move(value)), refuses_(refuses) {}

    Value readProperty(std::string_view name, const Value &defaultValue) const override {
        names += std::string(name) + " ";
        const bool isStrange = key_ == "*" || sameName(name, key_);
        if (isStrange && refuses_)
            throw 42;
        return isStrange ? value_ : bag_.readProperty(name, defaultValue);
    }
    void writeProperty(std::string_view, const Value &, const Value &) override { throw 42; }

    mutable std::string names;

private:
    const TextBag &bag_;
    std::string key_;
    Value value_;
    bool refuses_;
};

std::string without(const std::string &key, std::string lines) {
    const std::size_t at = lines.find('\n' + key + ' ');
    return at == std::string::npos ? lines : lines.erase(at, lines.find('\n', at + 1) - at);
}

TEST(Persistence, AStrangeValueSpoilsItsOwnSettingOnly) {
    // Without ticks, and without numbers, which a table without fixed rows has in its header.
    std::string lines = "\n" + without("ColStyle0", without("CheckBoxes", storedControl));
    const TextBag bag = TextBag::parse("Tablio properties 1\n" + lines);
    std::vector<std::string> keys = bag.names();
    keys.insert(keys.end(), {"CheckBoxes", "ColStyle0"});
    const Value strangeValues[] = {
        Value(),   true, std::int16_t{7}, 100000,           1e300,
        "strange", "12", Font{"Odd", 11}, Value::missing(), std::make_shared<TMatrix>()};
    for (const std::string &key : keys) {
        for (std::size_t place = 0; place <= std::size(strangeValues); ++place) {
            const bool refuses = place == std::size(strangeValues);
            SCOPED_TRACE(key + " " + std::to_string(place));
            Tablio table;
            table.ReadProperties(
                StrangeBag(bag, key, refuses ? Value() : strangeValues[place], refuses));
            EXPECT_TRUE(table.SetStatusCell());
            const std::string found = without(key, "\n" + saved(table));
            // The counts decide what there is to load at all, and no row is below the least height.
            if (key == "Cols" || key == "CheckBoxes" || key == "Rows" || key == "RowMinHeight")
                EXPECT_NE(found.find("\nStripeColor Long 14745568\n"), std::string::npos);
            else
                EXPECT_EQ(found, without(key, lines));
        }
    }
}

TEST(Persistence, KeysAreReadInTheirOrder) {
    const TextBag empty;
    const StrangeBag bag(empty, "", {});
    Tablio table;
    table.ReadProperties(bag);
    EXPECT_EQ(bag.names,
              "BackColorFixed WordWrap GridPopUpMenu Font ForeColorFixed Cols CheckBoxes Rows "
              "FixedRows FixedCols BackColorData GridColorData GridColorFixed ForeColorData "
              "BackColorMarkRow ForeColorMarkRow HeaderRowHeight BackColor Enabled RowMinHeight "
              "WithFixedColumn PrimaryColumn HeaderFontBold CheckBoxes RowMinHeight StripeColor "
              "CheckBoxColor ColStyle0 ColEditType0 ColFormat0 ColMaxlength0 ColDataType0 "
              "ColCalcStyle0 ColTextHeader0 ColDataAlignment0 ColHeaderAlignment0 ColWidth0 "
              "EntryRules TabWalks StretchColumn CheckBoxFrame ");
}

TEST(Persistence, AHostThatHearsOfTheLoadMayDoAnything) {
    struct Destroyer final : HostEvents {
        void CellFocus(std::int16_t &, std::int16_t &) override { table.reset(); }
        std::unique_ptr<Tablio> table = std::make_unique<Tablio>();
    } host;
    host.table->setCols(5);
    host.table->CellFocus(1, 4);
    host.table->setHost(&host);
    // One column is left, so the cursor has to move.
    load(*host.table, "");
    EXPECT_EQ(host.table, nullptr);
}

TEST(Persistence, WhatIsNotUnderstoodGoesBackAsItCame) {
    Tablio table;
    table.InitProperties();
    SettingsText settings(table);
    settings.load("Tablio properties 1\nRows Long 7\nZoom Double 1.5\nColGlow1 String \"red\"\n");
    EXPECT_EQ(table.Rows(), 7);
    table.setRows(9);
    const std::string text = settings.text();
    for (const char *line :
         {"\nRows Long 9\n", "\nZoom Double 1.5\n", "\nColGlow1 String \"red\"\n"})
        EXPECT_NE(text.find(line), std::string::npos) << line << " in\n" << text;

    for (const char *unread :
         {"Tablio properties 2\nRows Long 7\n", "Tablio properties 1\nRows Long 7\nRows Long 8\n",
          "Tablio properties 1\n<<<<<<< ours\nRows Long 7\n", "<<<", ""}) {
        settings.load(unread);
        EXPECT_EQ(settings.text(), unread);
        EXPECT_NE(settings.problem(), "");
        EXPECT_EQ(table.Rows(), 9);
        // Data are no settings, a count is one; undoing it brings back what was kept.
        table.setTextMatrix(1, 0, "x");
        EXPECT_EQ(settings.text(), unread);
        table.setRows(8);
        EXPECT_EQ(settings.problem() + settings.text().substr(0, 20), "Tablio properties 1\n");
        table.setRows(9);
        EXPECT_EQ(settings.text(), unread);
    }
}

} // namespace
} // namespace tablio
