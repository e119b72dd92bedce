#include "control/control.h"

#include <tablio/dispatch.h>
#include <tablio/errors.h>
#include <tablio/tablio.h>
#include <tablio/text_bag.h>

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <random>
#include <sstream>
#include <string>
#include <utility>

namespace tablio {
namespace {

std::string saved(const Tablio &table) {
    TextBag bag;
    table.WriteProperties(bag);
    return bag.text();
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
        text += table.control().state.columns.text(list, col) + "|";
    return text;
}

TEST(Persistence, ASavedControlReadsLikeThis) {
    Tablio table;
    table.InitProperties();
    table.setFont({"Arial", 9, false, true});
    table.setCols(3);
    table.setRows(12);
    table.setFixedCols(1);
    table.setWithFixedColumn(true);
    table.setPrimaryColumn(1);
    table.setCheckBoxes(-1);
    table.setStripeColor(Colour{0xE0FFE0});
    table.setEnabled(false);
    table.setWordWrap(false);
    table.setGridPopUpMenu(false);
    table.setHeaderFontBold(true);
    std::uint32_t colour = 1;
    for (const auto setColour :
         {&Tablio::setBackColorData, &Tablio::setGridColorData, &Tablio::setGridColorFixed,
          &Tablio::setBackColorMarkRow, &Tablio::setForeColorMarkRow, &Tablio::setBackColor,
          &Tablio::setCheckBoxColor})
        (table.*setColour)(Colour{colour++});
    table.SetColProperty(0, "No.", 500, TColumnStyle::ColumnFixedWithAutoNumber);
    table.SetColProperty(1, "Größe", 2000, TColumnStyle::ColumnInput, TColumnType::ColumnDecimal,
                         TColumnAlignment::ColumnCentre, TColumnAlignment::ColumnRight, 12,
                         "###,##0.00");
    table.setColDataType(1, TDataType::Positive);
    table.setColCalcStyle(1, TCalcStyle::CalcStyle);
    EXPECT_EQ(saved(table), R"(Tablio properties 1
BackColorFixed Long -2147483633
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
ColStyle2 Double 0
ColDataAlignment2 Integer 1
ColHeaderAlignment2 Integer 1
ColWidth2 Long 960
)");

    Tablio again;
    again.ReadProperties(TextBag::parse(saved(table)));
    EXPECT_EQ(again.Cols(), 3);
    EXPECT_EQ(listEntries(again, 0), "3|0||64|0|0|");
    EXPECT_EQ(listEntries(again, 1), "0|1|###,##0.00|12|1|1|");
    EXPECT_EQ(again.ColTextHeader(1), "Größe");
    EXPECT_EQ(again.TextMatrix(11, 0), "11");
    // The tick column is saved but not loaded.
    EXPECT_EQ(again.ColWidth(2), 300);
    EXPECT_EQ(again.control().state.columns.length(), 2);
    EXPECT_EQ(again.control().state.grid.table.ColAlignment(2), 9);
    EXPECT_EQ(again.control().state.widgets.txtEdit.look().Font, again.Font());
    EXPECT_TRUE(again.SetStatusCell());
    EXPECT_TRUE(again.control().state.grid.view.Redraw());
}

TEST(Persistence, AnEmptyStoreGivesTheDefaults) {
    Tablio table;
    table.setCols(4);
    table.setFixedCols(2);
    load(table, "");
    EXPECT_EQ(table.Cols(), 1);
    EXPECT_EQ(table.Rows(), 2);
    EXPECT_EQ(table.FixedRows(), 0);
    EXPECT_EQ(table.FixedCols(), 0);
    EXPECT_EQ(table.HeaderRowHeight(), 700);
    EXPECT_EQ(table.RowMinHeight(), 285);
    EXPECT_EQ(listEntries(table, 0), "2|0||64|0|0|");
    EXPECT_EQ(table.control().state.columns.length(), 1);
    EXPECT_EQ(table.ColTextHeader(0), "");
    EXPECT_EQ(table.control().state.grid.table.ColAlignment(0), 0);
    EXPECT_EQ(table.ColWidth(0), 0);
    EXPECT_EQ(table.ForeColorData(), SystemColour::ButtonText);
    EXPECT_EQ(table.BackColorFixed(), Colour{0xC0C0C0});
}

TEST(Persistence, StoredFormsThatAreNotTakenAtTheirWord) {
    const struct {
        const char *what;
        const char *lines;
        std::function<std::string(Tablio &)> look;
        const char *expected;
    } cases[] = {
        {"general alignment", "ColDataAlignment0 Integer 9\nColHeaderAlignment0 Integer 9",
         [](Tablio &t) {
             return std::to_string(t.control().state.grid.table.ColAlignment(0)) +
                    std::to_string(t.control().state.grid.table.FixedAlignment(0));
         },
         "11"},
        {"either spelling", "Cols Long 2\nColMaxlength0 String \"7\"\nCOLMAXLENGTH1 Integer 8",
         [](Tablio &t) {
             return std::to_string(t.ColMaxLength(0)) + std::to_string(t.ColMaxLength(1));
         },
         "78"},
        {"tick column counted off", "Cols Long 6\nCheckBoxes Integer -1\nColWidth4 Long 999",
         [](Tablio &t) { return std::to_string(t.Cols()) + "," + std::to_string(t.ColWidth(4)); },
         "5,300"},
        {"any tick number", "Cols Long 2\nCheckBoxes Integer 3\nColWidth3 Long 9\nColWidth4 Long 8",
         [](Tablio &t) {
             return std::to_string(t.Cols()) + "," + std::to_string(t.ColWidth(3)) + "," +
                    std::to_string(t.ColWidth(4));
         },
         "5,9,300"},
        {"counts as text", "Cols String \" 3 \"\nRows String \"4\"",
         [](Tablio &t) { return std::to_string(t.Cols()) + std::to_string(t.Rows()); }, "34"},
        {"unreadable count is 0", "Cols String \"many\"\nCheckBoxes Integer 3",
         [](Tablio &t) { return std::to_string(t.Cols()); }, "3"},
        {"count that the grid refuses", "Cols Long 40000\nColWidth1 Long 77",
         [](Tablio &t) { return std::to_string(t.Cols()) + "," + std::to_string(t.ColWidth(1)); },
         "2,77"},
        {"more fixed rows than rows", "Rows Long 3\nFixedRows Long 4\nColWidth0 Long 5",
         [](Tablio &t) {
             return std::to_string(t.FixedRows()) + "," + std::to_string(t.ColWidth(0));
         },
         "1,5"},
        {"list texts are kept", "ColStyle0 String \"x\"\nColEditType0 Double 2.5",
         [](Tablio &t) { return listEntries(t, 0); }, "x|2.5||64|0|0|"},
        {"bold grid font makes plain headers", "Font Font \"\" 9 bold\nCols Long 2",
         [](Tablio &t) {
             const FlexGrid &grid = t.control().state.grid;
             return std::to_string(grid.fontOf(0, 1).bold) + std::to_string(grid.fontOf(1, 1).bold);
         },
         "01"},
        {"bold headers need a bold grid font", "HeaderFontBold Boolean True",
         [](Tablio &t) { return std::to_string(t.control().state.grid.fontOf(0, 0).bold); }, "0"},
        {"rows are numbered", "Rows Long 3\nFixedRows Long 1\nColStyle0 Integer 3",
         [](Tablio &t) { return t.TextMatrix(1, 0) + t.TextMatrix(2, 0); }, "12"},
        {"flags as numbers", "Enabled Integer 0\nWordWrap String \"false\"",
         [](Tablio &t) { return std::to_string(t.Enabled()) + std::to_string(t.WordWrap()); },
         "00"},
    };
    for (const auto &c : cases) {
        Tablio table;
        load(table, c.lines);
        EXPECT_EQ(c.look(table), c.expected) << c.what;
        EXPECT_TRUE(table.SetStatusCell()) << c.what;
    }
}

TEST(Persistence, TwoHeightsChangeOnTheWay) {
    Tablio table;
    table.setRowMinHeight(0);
    table.setHeaderRowHeight(0);
    Tablio again;
    again.ReadProperties(TextBag::parse(saved(table)));
    EXPECT_EQ(again.HeaderRowHeight(), 700);
    table.setRowMinHeight(64);
    again.ReadProperties(TextBag::parse(saved(table)));
    EXPECT_EQ(again.RowMinHeight(), 285);
}

/// A control with random settings, of which those that change on the way are left out.
class RandomSettings {
public:
    explicit RandomSettings(unsigned seed) : random_(seed) {}

    int upTo(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit + 1)); }

    void apply(Tablio &table) {
        Dispatch dispatch(table);
        table.setCols(upTo(6));
        table.setCols(1 + upTo(5));
        table.setRows(1 + upTo(6));
        // Without fixed rows the numbers would overwrite the headers.
        table.setFixedRows(1 + upTo(table.Rows() - 1));
        table.setFixedCols(upTo(table.Cols()));
        for (const char *name :
             {"BackColorFixed", "ForeColorFixed", "BackColorData", "GridColorData",
              "GridColorFixed", "ForeColorData", "BackColorMarkRow", "ForeColorMarkRow",
              "BackColor", "CheckBoxColor"})
            dispatch.put(name, colour());
        for (const char *name :
             {"WordWrap", "GridPopUpMenu", "WithFixedColumn", "HeaderFontBold", "Enabled"})
            dispatch.put(name, upTo(1) == 1);
        if (upTo(1) == 1)
            table.setFont({text(), static_cast<float>(upTo(80)) / 4, upTo(1) == 1, upTo(1) == 1});
        table.setPrimaryColumn(upTo(table.Cols() - 1));
        table.setStripeColor(colour());
        table.setRowMinHeight(65 + upTo(500));
        table.setHeaderRowHeight(upTo(1000));
        table.setCheckBoxes(upTo(2) - 1);
        for (int col = 0; col < table.Cols(); ++col) {
            for (const char *name : {"ColStyle", "ColEditType", "ColDataType", "ColCalcStyle",
                                     "ColMaxLength", "ColWidth"})
                dispatch.put(name, upTo(9) == 0 ? upTo(30000) : upTo(4), {col});
            dispatch.put("ColFormat", text(), {col});
            dispatch.put("ColTextHeader", text(), {col});
            table.control().state.grid.table.setColAlignment(col, upTo(9));
            table.control().state.grid.table.setFixedAlignment(col, upTo(9));
        }
    }

private:
    Colour colour() {
        return upTo(3) == 0 ? Colour{0x80000000U + static_cast<unsigned>(upTo(24))}
                            : Colour{static_cast<unsigned>(upTo(0xFFFFFF))};
    }
    std::string text() {
        const char *texts[] = {"", "0.00", "###,##0", "a \"quoted\" text", "Größe\n", "64", "True"};
        return texts[upTo(6)];
    }

    std::mt19937 random_;
};

TEST(Persistence, WhatIsSavedComesBack) {
    for (unsigned seed = 0; seed < 2000; ++seed) {
        SCOPED_TRACE(seed);
        Tablio first;
        RandomSettings(seed).apply(first);
        // The tick column's own keys are not loaded; without them both texts agree.
        const bool hasTicks = first.CheckBoxes() != 0;
        const std::string tickColumn = std::to_string(first.Cols() - 1);
        const auto comparable = [&](const std::string &text) {
            std::istringstream lines(text);
            std::string result;
            for (std::string line; std::getline(lines, line);)
                if (!hasTicks ||
                    line.rfind(tickColumn, line.find(' ')) + tickColumn.size() != line.find(' '))
                    result += line + "\n";
            return result;
        };
        const std::string text = saved(first);
        Tablio second;
        second.ReadProperties(TextBag::parse(text));
        const std::string again = saved(second);
        ASSERT_EQ(comparable(again), comparable(text));
        // From then on nothing changes any more, and a control in use loads like a new one.
        first.ReadProperties(TextBag::parse(again));
        Tablio third;
        third.ReadProperties(TextBag::parse(again));
        ASSERT_EQ(comparable(saved(third)), comparable(again));
        ASSERT_EQ(comparable(saved(first)), comparable(again));
    }
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

std::map<std::string, std::string> linesByKey(const std::string &text) {
    std::istringstream lines(text);
    std::map<std::string, std::string> result;
    for (std::string line; std::getline(lines, line);)
        result[line.substr(0, line.find(' '))] = line;
    return result;
}

TEST(Persistence, AStrangeValueSpoilsItsOwnSettingOnly) {
    Tablio model;
    RandomSettings(7).apply(model);
    model.setCols(3);
    model.setRows(9);
    model.setCheckBoxes(0);
    TextBag bag;
    model.WriteProperties(bag);
    std::vector<std::string> keys = bag.names();
    for (const char *key : {"WordWrap", "Font", "FixedCols", "FixedRows", "Enabled", "CheckBoxes"})
        keys.emplace_back(key);

    Tablio plain;
    plain.ReadProperties(bag);
    const auto expected = linesByKey(saved(plain));
    const Value strangeValues[] = {Value(),
                                   true,
                                   std::int16_t{7},
                                   100000,
                                   1e300,
                                   "strange",
                                   "12",
                                   Font{"Odd", 11, true},
                                   std::make_shared<TMatrix>(),
                                   Value::missing()};
    for (const std::string &key : keys) {
        for (std::size_t place = 0; place <= std::size(strangeValues); ++place) {
            const bool refuses = place == std::size(strangeValues);
            SCOPED_TRACE(key + " " + std::to_string(place));
            Tablio table;
            table.ReadProperties(
                StrangeBag(bag, key, refuses ? Value() : strangeValues[place], refuses));
            EXPECT_TRUE(table.SetStatusCell());
            auto found = linesByKey(saved(table));
            auto wanted = expected;
            // The counts decide what there is to load at all.
            if (key == "Cols" || key == "CheckBoxes" || key == "Rows") {
                EXPECT_EQ(found["BackColor"], wanted["BackColor"]);
                EXPECT_EQ(found["CheckBoxColor"], wanted["CheckBoxColor"]);
                continue;
            }
            for (auto *lines : {&found, &wanted}) {
                lines->erase(key);
                // No row is lower than the least height.
                if (key == "RowMinHeight")
                    lines->erase("HeaderRowHeight");
            }
            EXPECT_EQ(found, wanted);
        }
    }
}

TEST(Persistence, AStoreThatFailsLeavesTheControlAsItWas) {
    Tablio table;
    RandomSettings(3).apply(table);
    table.setCheckBoxes(0);
    auto before = linesByKey(saved(table));
    const TextBag empty;
    StrangeBag refusing(empty, "*", {}, true);
    table.ReadProperties(refusing);
    table.WriteProperties(refusing);
    auto after = linesByKey(saved(table));
    // The lists are emptied before they are read.
    for (auto *lines : {&before, &after})
        for (auto line = lines->begin(); line != lines->end();)
            line = line->first.rfind("ColWidth", 0) != 0 && line->first.rfind("Col", 0) == 0
                       ? lines->erase(line)
                       : std::next(line);
    EXPECT_EQ(after, before);
    EXPECT_EQ(listEntries(table, 0), "2|0||64|0|0|");
    EXPECT_TRUE(table.SetStatusCell());
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
              "ColCalcStyle0 ColTextHeader0 ColDataAlignment0 ColHeaderAlignment0 ColWidth0 ");
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

} // namespace
} // namespace tablio
