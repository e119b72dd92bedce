#include "members/member_document.h"
#include "typelib/typelib.h"
#include "web_types/web_glue.h"
#include "web_types/web_types.h"

#include <tablio/dispatch.h>
#include <tablio/errors.h>
#include <tablio/members.h>
#include <tablio/tablio.h>
#include <tablio/text_bag.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

namespace tablio {
namespace {

/// Writes down which properties are set; its user writes numbers as in Germany.
class GermanFace final : public Face {
public:
    [[nodiscard]] NumberFormat numberFormat() const override { return {",", ".", 3}; }
    void propertyChanged(MemberNumber number) override { notices.append(findMember(number).name); }
    std::string notices;
};

class DispatchTest : public testing::Test {
protected:
    DispatchTest() {
        table.setFace(&face);
        table.setRows(4);
        table.setCols(5);
        table.Show();
    }

    GermanFace face;
    Tablio table;
    Dispatch dispatch{table};
};

Value otherThan(const Value &value) {
    switch (value.type()) {
    case Value::Type::Boolean:
        return !value.toBoolean();
    case Value::Type::String:
        return "7";
    case Value::Type::Font:
        return Font{"Arial", 12, true, false};
    case Value::Type::Object:
        return std::make_shared<TMatrix>();
    default:
        return value.toLong() + 1;
    }
}

/// That types fit is checked when the table is compiled; this is about whose functions they are.
/// Methods are in the scenarios, which reach them through the same table.
TEST_F(DispatchTest, EachPropertyIsWrittenReadAndToldUnderItsOwnName) {
    // What belongs to a row or a cell is not told of, and neither are these.
    const std::string_view silent[] = {"MarkRow",      "CellTag",       "RowHeight",
                                       "CellFont",     "CellFontBold",  "CellFontItalic",
                                       "CellFontSize", "CellBackColor", "CellForeColor",
                                       "LookupResult", "SetStatusCell"};
    std::set<MemberNumber> numbers;
    for (const Member &member : members()) {
        SCOPED_TRACE(member.name);
        EXPECT_TRUE(numbers.insert(member.number).second);
        if (member.write == nullptr)
            continue;
        const Values index(member.arguments.size(), Value(1));
        const Value before = member.read != nullptr ? dispatch.get(member.number, index) : "";
        // Widths of all columns; a text of another form changes nothing.
        const bool isLayout = member.name == "Layout";
        const Value written = isLayout ? before.toText().append("5") : otherThan(before);
        const bool tells = std::ranges::find(silent, member.name) == std::end(silent);
        face.notices.clear();
        dispatch.put(member.name, written, index);
        EXPECT_EQ(face.notices, tells ? member.name : "");
        if (member.read != nullptr) {
            EXPECT_TRUE(comparesEqual(dispatch.get(member.name, index), written));
            dispatch.put(member.number, before, index);
        }
    }
}

TEST_F(DispatchTest, ConvertsArgumentsAndFillsInWhatIsLeftOut) {
    dispatch.put("rows", "6");
    EXPECT_EQ(dispatch.get("ROWS"), Value(6));
    EXPECT_EQ(dispatch.get("ColMaxLength", {"1.5"}), Value(std::int16_t{64}));
    dispatch.put("BackColor", 2147483666.0);
    EXPECT_EQ(table.BackColor(), SystemColour::ButtonText);
    dispatch.put("ColStyle", 17, {1});
    EXPECT_EQ(dispatch.get("ColStyle", {1}), Value(17));
    dispatch.put("TextMatrix", true, {1, 0});
    // A reader can be called like a method.
    EXPECT_EQ(dispatch.call("TextMatrix", {1, 0}), Value("True"));

    dispatch.call("SetColProperty", {1, "Price", Value::missing(), 0, Value::missing(), 7});
    EXPECT_EQ(table.ColTextHeader(1), "Price");
    EXPECT_EQ(table.ColWidth(1), 1000);
    EXPECT_EQ(table.ColStyle(1), TColumnStyle::ColumnInput);
    EXPECT_EQ(table.ColHeaderAlignment(1), TColumnAlignment::ColumnRight);
    EXPECT_EQ(table.ColDataAlignment(1), TColumnAlignment::ColumnLeft);

    // What hangs on a cell keeps its type.
    for (const Value &tag : {Value(7), Value(0.5), Value(true), Value("seven")}) {
        dispatch.put("CellTag", tag, {1, "2"});
        EXPECT_EQ(dispatch.call("CellTag", {1, 2}), tag);
    }
    EXPECT_EQ(dispatch.get("CellTag", {2, 1}), Value(""));

    // A number for a text is written as the user writes numbers.
    table.setColEditType(1, TColumnType::ColumnDecimal);
    table.setColFormat(1, "###,##0.00");
    dispatch.put("TextMatrix", 1250.5, {1, 1});
    EXPECT_EQ(dispatch.get("TextMatrix", {1, 1}), Value("1250,5"));
    dispatch.put("TextMatrix", "0,125", {1, 1});
    EXPECT_EQ(dispatch.get("TextMatrix", {1, 1}), Value("0,125"));
}

/// The error's kind and, if it is known, the place of the argument that it is about.
template <typename Act> std::string errorOf(Act act) {
    try {
        act();
    } catch (const Error &error) {
        const char *const kinds[] = {"other", "grid", "overflow", "unknown", "count", "mismatch"};
        const std::string kind = kinds[static_cast<int>(error.kind())];
        return error.argument() < 0 ? kind : kind + " " + std::to_string(error.argument());
    }
    return "none";
}

TEST_F(DispatchTest, RefusesWithTheRightErrorAndChangesNothing) {
    enum How { call, get, put };
    const struct {
        How how;
        const char *member;
        Values arguments;
        Value value;
        const char *error;
    } cases[] = {
        {call, "Nothing", {}, {}, "unknown"},
        {put, "AddRow", {}, 1, "unknown"},
        {get, "LookupResult", {1, 3}, {}, "unknown"},
        {call, "AddRow", {1}, {}, "count"},
        {call, "Check", {Value::missing(), 1}, {}, "count"},
        {put, "ColWidth", {}, 1, "count"},
        {put, "Rows", {}, "many", "mismatch 0"},
        {put, "Font", {}, 9, "mismatch 0"},
        {put, "TextMatrix", {1, 1}, Font{}, "mismatch 2"},
        {get, "CellTag", {1}, {}, "count"},
        {call, "ComboAddItem", {Font{}}, {}, "mismatch 0"},
        {call, "SetColProperty", {1, "", 40000}, {}, "overflow 2"},
        {put, "Rows", {}, 40000, "overflow"},
        {get, "ColWidth", {99}, {}, "grid"},
    };
    const auto saved = [this] {
        TextBag bag;
        table.WriteProperties(bag);
        return bag.text();
    };
    const std::string before = saved();
    for (const auto &c : cases) {
        EXPECT_EQ(errorOf([&] {
                      if (c.how == put)
                          dispatch.put(c.member, c.value, c.arguments);
                      else if (c.how == get)
                          static_cast<void>(dispatch.get(c.member, c.arguments));
                      else
                          dispatch.call(c.member, c.arguments);
                  }),
                  c.error)
            << c.member;
    }
    EXPECT_EQ(saved(), before);
    EXPECT_THROW(dispatch.call(12345), UnknownMember);
    // One name, coming in and going out, and neither number is the other's.
    EXPECT_EQ(Dispatch::numberOf("cellfocus"), 0x6003005C);
    EXPECT_EQ(Dispatch::numberOfEvent("cellfocus"), 5);
    EXPECT_THROW(dispatch.call(5), UnknownMember);
    EXPECT_THROW((void)Dispatch::numberOf("TableChange"), UnknownMember);
    EXPECT_THROW((void)Dispatch::numberOfEvent("AddRow"), UnknownMember);
    try {
        dispatch.call("SetColProperty", {1, "", "wide"});
        ADD_FAILURE();
    } catch (const TypeMismatch &error) {
        EXPECT_STREQ(error.what(), "SetColProperty, NewColWidth: a value of type String "
                                   "(\"wide\") cannot be read as a number");
    }
}

TEST(PrintedFromTheMemberTable, IsWhatIsShipped) {
    struct {
        const char *file;
        std::string (*printed)();
        const char *program;
    } const files[] = {
        {"docs/members.md", membersDocument, "tablio_members"},
        {"docs/web-members.md", webMembersDocument, "tablio_web_types document"},
        {"frontends/com/server/typelib/tablio.idl", interfaceText, "tablio_typelib --idl"},
        {"frontends/com/include/tablio_com.h", identifierHeader, "tablio_typelib --header"},
        {"frontends/web/tablio-grid.d.ts", webTypes, "tablio_web_types types"},
        {"frontends/web/members/member_table.ts", webMemberTable, "tablio_web_types table"},
    };
    for (const auto &[name, printed, program] : files) {
        std::ifstream file(std::string(TABLIO_SOURCES "/") + name, std::ios::binary);
        ASSERT_TRUE(file) << name;
        const std::string shipped{std::istreambuf_iterator<char>(file), {}};
        EXPECT_TRUE(shipped == printed()) << "print it again: " << program << " > " << name;
    }
}

} // namespace
} // namespace tablio
