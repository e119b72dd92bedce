#include "state/column_settings.h"

#include <tablio/errors.h>

#include <gtest/gtest.h>

namespace tablio {
namespace {

class ColumnSettingsTest : public testing::Test, public GridTableObserver {
protected:
    void cellChanged(int /*row*/, int /*col*/) override {}
    void tableChanged() override {}

    void setCols(int count) {
        table.setCols(count);
        settings.followColumnCount();
    }

    GridTable table{*this};
    ColumnSettings settings{table};
};

TEST_F(ColumnSettingsTest, ANumberIsWhatATextBeginsWith) {
    setCols(2);
    const struct {
        const char *text;
        int expected;
    } cases[] = {{"64", 64},    {" 7 ", 7},    {"12abc", 12},     {"", 0},      {"abc", 0},
                 {"-3", -3},    {"+3", 3},     {"#,##0.00", 0},   {"12.7", 13}, {"2.5", 2},
                 {"-2.6x", -3}, {"1E+2", 100}, {"5-", 5},         {"1.5e", 2},  {"1e", 1},
                 {"-", 0},      {"1E+16", 0},  {"99999999999", 0}};
    for (const auto &each : cases) {
        settings.setText(ColumnSettings::MaxLength, 1, each.text);
        EXPECT_EQ(settings.ColMaxLength(1), each.expected) << each.text;
    }
}

TEST_F(ColumnSettingsTest, AColumnThatNeitherListsNorGridHaveIsAnError) {
    setCols(2);
    EXPECT_THROW((void)settings.ColFormat(2), GridError);
    EXPECT_THROW((void)settings.ColStyle(-1), GridError);
    EXPECT_THROW(settings.setText(ColumnSettings::Format, 2, "x"), GridError);
    // A grid column whose entry is missing reads as nothing, but cannot be written.
    table.setCols(3);
    EXPECT_EQ(settings.ColFormat(2), "");
    EXPECT_EQ(settings.ColMaxLength(2), 0);
    EXPECT_THROW(settings.setNumber(ColumnSettings::MaxLength, 2, 5), GridError);
}

} // namespace
} // namespace tablio
