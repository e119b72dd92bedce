#include "automation/member_document.h"
#include "automation/member_table.h"
#include "control/control.h"

#include <tablio/dispatch.h>
#include <tablio/errors.h>
#include <tablio/tablio.h>
#include <tablio/text_bag.h>

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace tablio {
namespace {

/// Three data rows; columns: text, decimal, combo, lookup, tick.
void setUp(Tablio &table) {
    table.setRows(4);
    table.setCols(5);
    table.setCheckBoxes(-1);
    table.setColEditType(1, TColumnType::ColumnDecimal);
    table.setColEditType(2, TColumnType::ColumnCombo);
    table.setColStyle(3, TColumnStyle::ColumnInputWithLookup);
    table.Show();
    table.setTextMatrix(1, 0, "a");
    table.setTextMatrix(2, 0, "b");
    table.setTextMatrix(3, 0, "A");
    table.setTextMatrix(1, 2, "y");
    table.ComboAddItem("x");
    table.ComboAddItem("y");
    table.setMarkRow(1);
    table.Check(2, true);
}

/// Everything of a control that any member can change, as text.
std::string snapshot(const Tablio &table, const Control &control) {
    TextBag bag;
    table.WriteProperties(bag);
    const ControlState &state = control.state;
    const FlexGrid &grid = state.grid;
    std::ostringstream text;
    text << bag.text() << grid.Row() << ',' << grid.Col() << ' ' << state.MarkRow
         << state.SetStatusCell << state.CellTag->size() << '\n';
    for (int row = 0; row < grid.table.Rows(); ++row) {
        text << grid.table.RowHeight(row);
        for (int col = 0; col < grid.table.Cols(); ++col) {
            const Font font = grid.fontOf(row, col);
            text << '|' << grid.table.TextMatrix(row, col) << ' '
                 << grid.backColorOf(row, col).value << ' ' << grid.foreColorOf(row, col).value
                 << font.name << font.size << font.bold << font.italic;
        }
        text << '\n';
    }
    for (const std::string &item : state.widgets.cboEdit.items())
        text << item << ';';
    return text.str();
}

struct Case {
    const char *name;
    Values arguments;
    /// The typed read or call. The new value of a property, and its typed write.
    std::function<Value(Tablio &)> read;
    Value newValue;
    std::function<void(Tablio &)> write;
};

/// A property whose getter and setter take these indexes.
template <typename Get, typename Set, typename New, typename... Index>
Case property(const char *name, Get get, Set set, New newValue, Index... index) {
    return {name,
            {Value(index)...},
            [=](Tablio &table) { return Value((table.*get)(index...)); },
            Value(newValue),
            [=](Tablio &table) { (table.*set)(index..., newValue); }};
}

Case method(const char *name, Values arguments, std::function<void(Tablio &)> call) {
    return {name,
            std::move(arguments),
            [call = std::move(call)](Tablio &table) {
                call(table);
                return Value();
            },
            {},
            {}};
}

Case function(const char *name, Values arguments, std::function<Value(Tablio &)> call) {
    return {name, std::move(arguments), std::move(call), {}, {}};
}

std::vector<Case> allMembers() {
    using T = Tablio;
    const auto tags = std::make_shared<TMatrix>();
    tags->setText(1, 1, "tag");
    const Colour red{0xFF};
    const Colour blue{0xFF0000};
    const auto centre = TColumnAlignment::ColumnCentre;
    return {
        property("MarkRow", &T::MarkRow, &T::setMarkRow, 3),
        property("CellTag", &T::CellTag, &T::setCellTag, tags),
        property("BackColorFixed", &T::BackColorFixed, &T::setBackColorFixed, red),
        property("Enabled", &T::Enabled, &T::setEnabled, false),
        property("Font", &T::Font, &T::setFont, Font{"Arial", 12, true, false}),
        property("ForeColorFixed", &T::ForeColorFixed, &T::setForeColorFixed, red),
        property("Cols", &T::Cols, &T::setCols, 7),
        property("Rows", &T::Rows, &T::setRows, 9),
        property("RowMinHeight", &T::RowMinHeight, &T::setRowMinHeight, 400),
        property("StripeColor", &T::StripeColor, &T::setStripeColor, red),
        property("CheckBoxColor", &T::CheckBoxColor, &T::setCheckBoxColor, blue),
        property("RowHeight", &T::RowHeight, &T::setRowHeight, 555, 2),
        property("CellFont", &T::CellFont, &T::setCellFont, "Courier", 1, 2),
        property("CellFontBold", &T::CellFontBold, &T::setCellFontBold, true, 1, 2),
        property("CellFontItalic", &T::CellFontItalic, &T::setCellFontItalic, true, 1, 2),
        property("CellFontSize", &T::CellFontSize, &T::setCellFontSize, 22, 1, 2),
        property("SetStatusCell", &T::SetStatusCell, &T::setSetStatusCell, false),
        property("CellBackColor", &T::CellBackColor, &T::setCellBackColor, red, 1, 2),
        property("CellForeColor", &T::CellForeColor, &T::setCellForeColor, blue, 1, 2),
        property("FixedRows", &T::FixedRows, &T::setFixedRows, 2),
        property("FixedCols", &T::FixedCols, &T::setFixedCols, 1),
        property("ForeColorData", &T::ForeColorData, &T::setForeColorData, red),
        property("WithFixedColumn", &T::WithFixedColumn, &T::setWithFixedColumn, true),
        property("ColDataAlignment", &T::ColDataAlignment, &T::setColDataAlignment, centre, 2),
        property("ColHeaderAlignment", &T::ColHeaderAlignment, &T::setColHeaderAlignment, centre,
                 2),
        property("ColWidth", &T::ColWidth, &T::setColWidth, 1234, 2),
        property("ColTextHeader", &T::ColTextHeader, &T::setColTextHeader, "Header", 2),
        property("HeaderRowHeight", &T::HeaderRowHeight, &T::setHeaderRowHeight, 654),
        property("CheckBoxes", &T::CheckBoxes, &T::setCheckBoxes, 0),
        property("BackColorData", &T::BackColorData, &T::setBackColorData, red),
        property("GridColorData", &T::GridColorData, &T::setGridColorData, red),
        property("GridColorFixed", &T::GridColorFixed, &T::setGridColorFixed, red),
        property("BackColorMarkRow", &T::BackColorMarkRow, &T::setBackColorMarkRow, red),
        property("GridPopUpMenu", &T::GridPopUpMenu, &T::setGridPopUpMenu, false),
        property("ForeColorMarkRow", &T::ForeColorMarkRow, &T::setForeColorMarkRow, red),
        property("PrimaryColumn", &T::PrimaryColumn, &T::setPrimaryColumn, 2),
        property("ColStyle", &T::ColStyle, &T::setColStyle, TColumnStyle::ColumnFixed, 2),
        property("ColEditType", &T::ColEditType, &T::setColEditType, TColumnType::ColumnDate, 2),
        property("ColDataType", &T::ColDataType, &T::setColDataType, TDataType::UpperCase, 2),
        property("ColCalcStyle", &T::ColCalcStyle, &T::setColCalcStyle, TCalcStyle::CalcStyle, 2),
        property("ColFormat", &T::ColFormat, &T::setColFormat, "0.00", 2),
        property("ColMaxLength", &T::ColMaxLength, &T::setColMaxLength, 12, 2),
        property("TextMatrix", &T::TextMatrix, &T::setTextMatrix, "12.5", 1, 1),
        {"LookupResult", {1, 3}, {}, "found", [](T &t) { t.setLookupResult(1, 3, "found"); }},
        method("ComboClear", {}, [](T &t) { t.ComboClear(); }),
        method("ComboAddItem", {"z"}, [](T &t) { t.ComboAddItem("z"); }),
        property("BackColor", &T::BackColor, &T::setBackColor, red),
        property("WordWrap", &T::WordWrap, &T::setWordWrap, false),
        property("HeaderFontBold", &T::HeaderFontBold, &T::setHeaderFontBold, true),
        // The defaults are those of the typed function.
        method("SetColProperty", {2}, [](T &t) { t.SetColProperty(2); }),
        method("ResetRow", {2}, [](T &t) { t.ResetRow(2); }),
        method("CellFocus", {3, 2}, [](T &t) { t.CellFocus(3, 2); }),
        method("TableClear", {}, [](T &t) { t.TableClear(); }),
        function("DataCount", {}, [](T &t) { return Value(t.DataCount()); }),
        method("MarkActiveRow", {}, [](T &t) { t.MarkActiveRow(); }),
        function("MarkStatus", {}, [](T &t) { return Value(t.MarkStatus()); }),
        function("FindDuplicatePrimaryColumn", {1},
                 [](T &t) { return Value(t.FindDuplicatePrimaryColumn(1)); }),
        method("AddRow", {}, [](T &t) { t.AddRow(); }),
        method("RemoveRow", {1}, [](T &t) { t.RemoveRow(1); }),
        function("Checked", {2}, [](T &t) { return Value(t.Checked(2)); }),
        function("ListIndex", {1, 2}, [](T &t) { return Value(t.ListIndex(1, 2)); }),
        method("Check", {3, true}, [](T &t) { t.Check(3, true); }),
        method("InsertRow", {2}, [](T &t) { t.InsertRow(2); }),
        method("SetHeaderBackColor", {1, red}, [=](T &t) { t.SetHeaderBackColor(1, red); }),
        method("SetHeaderForeColor", {1, blue}, [=](T &t) { t.SetHeaderForeColor(1, blue); }),
    };
}

std::string upperCase(std::string text) {
    for (char &character : text)
        character = character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A')
                                                         : character;
    return text;
}

TEST(Dispatch, EachMemberDoesWhatItsTypedFunctionDoes) {
    std::set<std::string> tested;
    for (const Case &c : allMembers()) {
        SCOPED_TRACE(c.name);
        EXPECT_TRUE(tested.insert(c.name).second);
        for (const bool byName : {false, true}) {
            Tablio typed;
            Tablio late;
            setUp(typed);
            setUp(late);
            late.setCellTag(typed.CellTag());
            const std::string before = snapshot(late, late.control());
            ASSERT_EQ(before, snapshot(typed, typed.control()));

            Dispatch dispatch(late);
            const std::string name = upperCase(c.name);
            const MemberNumber number = Dispatch::numberOf(name);
            const auto get = [&] {
                return byName ? dispatch.get(name, c.arguments) : dispatch.get(number, c.arguments);
            };
            const bool isMethod = findMember(number).kind == MemberKind::Method;
            if (c.read) {
                const Value result = !isMethod ? get()
                                     : byName  ? dispatch.call(name, c.arguments)
                                               : dispatch.call(number, c.arguments);
                const Value expected = c.read(typed);
                EXPECT_EQ(result.type() == Value::Type::Empty,
                          expected.type() == Value::Type::Empty);
                EXPECT_TRUE(comparesEqual(result, expected));
            }
            if (c.write) {
                if (byName)
                    dispatch.put(name, c.newValue, c.arguments);
                else
                    dispatch.put(number, c.newValue, c.arguments);
                c.write(typed);
                if (c.read) {
                    EXPECT_TRUE(comparesEqual(get(), c.read(typed)));
                }
            }
            const std::string after = snapshot(late, late.control());
            EXPECT_EQ(after, snapshot(typed, typed.control()));
            // A case that changes nothing would prove nothing.
            if (c.write || findMember(number).type == MemberType::None) {
                EXPECT_NE(after, before);
            }
        }
    }
    std::set<std::string> known;
    for (const Member &member : members())
        known.insert(std::string(member.name));
    EXPECT_EQ(tested, known);
    EXPECT_EQ(known.size(), members().size());
}

TEST(Dispatch, NumbersAreUniqueAndNamesMeetThem) {
    std::set<MemberNumber> numbers;
    for (const Member &member : members())
        EXPECT_TRUE(numbers.insert(member.number).second) << member.name;
    for (std::size_t place = 0; place < events().size(); ++place)
        EXPECT_EQ(events()[place].number, static_cast<MemberNumber>(place + 1));
    // One name, coming in and going out.
    EXPECT_EQ(Dispatch::numberOf("cellfocus"), 0x6003005C);
    EXPECT_EQ(Dispatch::numberOfEvent("cellfocus"), 5);
    EXPECT_THROW((void)Dispatch::numberOf("TableChange"), UnknownMember);
    EXPECT_THROW((void)Dispatch::numberOfEvent("AddRow"), UnknownMember);
}

TEST(Dispatch, ConvertsArgumentsAndFillsInWhatIsLeftOut) {
    Tablio table;
    setUp(table);
    Dispatch dispatch(table);
    dispatch.put("Rows", "6");
    EXPECT_EQ(dispatch.get("Rows"), Value(6));
    EXPECT_EQ(dispatch.get("ColMaxLength", {"1.5"}), Value(std::int16_t{64}));
    dispatch.put("BackColor", 2147483666.0);
    EXPECT_EQ(table.BackColor(), SystemColour::ButtonText);
    dispatch.put("ColStyle", 17, {1});
    EXPECT_EQ(dispatch.get("ColStyle", {1}), Value(17));
    dispatch.put("TextMatrix", true, {1, 0});
    EXPECT_EQ(table.TextMatrix(1, 0), "True");
    // A reader can be called like a method.
    EXPECT_EQ(dispatch.call("TextMatrix", {1, 0}), Value("True"));

    dispatch.call("SetColProperty", {1, "Price", Value::missing(), 0, Value::missing(), 7});
    EXPECT_EQ(table.ColTextHeader(1), "Price");
    EXPECT_EQ(table.ColWidth(1), 1000);
    EXPECT_EQ(table.ColStyle(1), TColumnStyle::ColumnInput);
    EXPECT_EQ(table.ColHeaderAlignment(1), TColumnAlignment::ColumnRight);
    EXPECT_EQ(table.ColDataAlignment(1), TColumnAlignment::ColumnLeft);
}

TEST(Dispatch, ANumberForATextIsWrittenAsTheUserWritesNumbers) {
    class German final : public Face {
        [[nodiscard]] NumberFormat numberFormat() const override { return {",", ".", 3}; }
    } german;
    Tablio table;
    setUp(table);
    table.setFace(&german);
    table.setColFormat(1, "###,##0.00");
    Dispatch dispatch(table);
    dispatch.put("TextMatrix", 1250.5, {1, 1});
    EXPECT_EQ(dispatch.get("TextMatrix", {1, 1}), Value("1250,5"));
    dispatch.put("TextMatrix", "0,125", {1, 1});
    EXPECT_EQ(dispatch.get("TextMatrix", {1, 1}), Value("0,125"));
    table.setFace(nullptr);
}

TEST(Dispatch, RefusesWithTheRightError) {
    enum Kind { unknown, count, mismatch, overflow, grid };
    const struct {
        const char *what;
        void (*act)(Dispatch &);
        Kind kind;
    } cases[] = {
        {"unknown name", [](Dispatch &d) { d.call("Nothing"); }, unknown},
        {"unknown number", [](Dispatch &d) { d.call(12345); }, unknown},
        {"an event's number", [](Dispatch &d) { d.call(5); }, unknown},
        {"written method", [](Dispatch &d) { d.put("AddRow", 1); }, unknown},
        {"method as property", [](Dispatch &d) { (void)d.get("AddRow"); }, unknown},
        {"read-only", [](Dispatch &d) { d.put("DataCount", 1); }, unknown},
        {"write-only",
         [](Dispatch &d) {
             (void)d.get("LookupResult", {1, 3});
         },
         unknown},
        {"too many", [](Dispatch &d) { d.call("AddRow", {1}); }, count},
        {"too few", [](Dispatch &d) { d.call("Check", {1}); }, count},
        {"index missing", [](Dispatch &d) { d.put("ColWidth", 1); }, count},
        {"required left out",
         [](Dispatch &d) {
             d.call("Check", {Value::missing(), 1});
         },
         count},
        {"text for a number", [](Dispatch &d) { d.put("Rows", "many"); }, mismatch},
        {"number for a font", [](Dispatch &d) { d.put("Font", 9); }, mismatch},
        {"text for an object", [](Dispatch &d) { d.put("CellTag", ""); }, mismatch},
        {"object for text", [](Dispatch &d) { d.call("ComboAddItem", {Font{}}); }, mismatch},
        {"index beyond 16 bits", [](Dispatch &d) { (void)d.get("ColStyle", {32768}); }, overflow},
        {"width beyond 16 bits",
         [](Dispatch &d) {
             d.call("SetColProperty", {1, "", 40000});
         },
         overflow},
        {"value beyond 32 bits", [](Dispatch &d) { d.put("Rows", 1e10); }, overflow},
        {"the grid's own error", [](Dispatch &d) { (void)d.get("ColWidth", {99}); }, grid},
        {"the grid's own overflow", [](Dispatch &d) { d.put("Rows", 40000); }, overflow},
    };
    Tablio table;
    setUp(table);
    Dispatch dispatch(table);
    const std::string before = snapshot(table, table.control());
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        switch (c.kind) {
        case unknown:
            EXPECT_THROW(c.act(dispatch), UnknownMember);
            break;
        case count:
            EXPECT_THROW(c.act(dispatch), ArgumentCount);
            break;
        case mismatch:
            EXPECT_THROW(c.act(dispatch), TypeMismatch);
            break;
        case overflow:
            EXPECT_THROW(c.act(dispatch), OverflowError);
            break;
        case grid:
            EXPECT_THROW(c.act(dispatch), GridError);
            break;
        }
        EXPECT_EQ(snapshot(table, table.control()), before);
    }
    try {
        dispatch.call("SetColProperty", {1, "", "wide"});
        ADD_FAILURE();
    } catch (const TypeMismatch &error) {
        EXPECT_STREQ(error.what(), "SetColProperty, NewColWidth: a value of type String "
                                   "(\"wide\") cannot be read as a number");
    }
}

TEST(MemberDocument, IsTheOneThatIsShipped) {
    std::ifstream file(TABLIO_MEMBERS_DOCUMENT, std::ios::binary);
    ASSERT_TRUE(file) << TABLIO_MEMBERS_DOCUMENT;
    const std::string shipped{std::istreambuf_iterator<char>(file), {}};
    EXPECT_TRUE(shipped == membersDocument())
        << "build tablio_members and print it again: tablio_members > docs/members.md";
}

} // namespace
} // namespace tablio
