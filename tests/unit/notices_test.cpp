#include "automation/member_table.h"
#include "unit/notice_face.h"

#include <tablio/tablio.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace tablio {
namespace {

TEST(Notices, EachSavedPropertyTellsItsOwnNameWhenItIsWritten) {
    // What belongs to a row or a cell is not saved, and neither are these.
    const std::string_view silent[] = {"MarkRow",      "CellTag",       "RowHeight",
                                       "CellFont",     "CellFontBold",  "CellFontItalic",
                                       "CellFontSize", "CellBackColor", "CellForeColor",
                                       "LookupResult", "SetStatusCell"};
    NoticeFace face;
    Tablio table;
    table.setFace(&face);
    table.InitProperties();
    table.Show();
    for (const Member &member : members()) {
        if (member.write == nullptr)
            continue;
        Values arguments(member.arguments.size(), Value(1));
        const Value value = member.read != nullptr ? member.read(table, arguments) : Value("");
        arguments.push_back(value);
        face.notices.clear();
        member.write(table, arguments);
        const bool tells = std::ranges::find(silent, member.name) == std::end(silent);
        EXPECT_EQ(face.notices, tells ? std::string(member.name) + " " : "") << member.name;
    }
    table.setFace(nullptr);
}

} // namespace
} // namespace tablio
