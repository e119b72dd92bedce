/// Who watches the table hears of every change, whatever made it: a picture that is kept by what a
/// watcher is told alone stays the table's own, and so does one kept by notices.

#include <tablio/cells.h>
#include <tablio/errors.h>
#include <tablio/table_watcher.h>
#include <tablio/tablio.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace tablio {
namespace {

using Picture = std::vector<std::vector<std::string>>;

/// What the table holds in these cells, and what it shows of them.
std::string readCell(Tablio &table, int row, int col) {
    return table.TextMatrix(row, col) + "/" + std::string(table.screen().facts({row, col}).text);
}

Picture readAll(Tablio &table) {
    Picture all;
    for (int row = 0; row < table.Rows(); ++row) {
        all.emplace_back();
        for (int col = 0; col < table.Cols(); ++col)
            all.back().push_back(readCell(table, row, col));
    }
    return all;
}

/// Reads only what it is told of; between "Coming" and "Came" the table must be as it was.
class Mirror final : public TableWatcher {
public:
    explicit Mirror(Tablio &table) : table_(table), picture(readAll(table)) {}

    void rowsComing(int first, int /*count*/) override {
        EXPECT_LE(first, static_cast<int>(picture.size()));
        EXPECT_EQ(table_.Rows(), static_cast<int>(picture.size()));
    }
    void rowsCame(int first, int count) override {
        const std::vector<std::string> blank(static_cast<std::size_t>(table_.Cols()), "/");
        picture.insert(picture.begin() + first, static_cast<std::size_t>(count), blank);
        for (int row = first; row < first + count; ++row)
            readRow(row);
        EXPECT_EQ(table_.Rows(), static_cast<int>(picture.size()));
    }
    void rowsGoing(int first, int count) override {
        EXPECT_LE(first + count, static_cast<int>(picture.size()));
    }
    void rowsWent(int first, int count) override {
        picture.erase(picture.begin() + first, picture.begin() + first + count);
        EXPECT_EQ(table_.Rows(), static_cast<int>(picture.size()));
    }
    void cellsChanged(const CellBlock &cells) override {
        for (int row = cells.firstRow; row <= cells.lastRow; ++row) {
            for (int col = cells.firstCol; col <= cells.lastCol; ++col)
                picture.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(col)) =
                    readCell(table_, row, col);
        }
    }
    void tableChanged() override { picture = readAll(table_); }

private:
    void readRow(int row) { cellsChanged({row, 0, row, table_.Cols() - 1}); }

    Tablio &table_;

public:
    Picture picture;
};

class ChangesTest : public testing::Test {
protected:
    ChangesTest() {
        table.InitProperties();
        table.setRows(4);
        table.setCols(4);
        table.setWithFixedColumn(true);
        table.setFixedCols(1);
        table.setPrimaryColumn(1);
        table.setCheckBoxes(1);
        table.SetColProperty(0, "", 500, TColumnStyle::ColumnFixedWithAutoNumber);
        table.SetColProperty(1, "Code", 1500, TColumnStyle::ColumnInput);
        table.SetColProperty(2, "Price", 1500, TColumnStyle::ColumnInput,
                             TColumnType::ColumnDecimal, TColumnAlignment::ColumnRight,
                             TColumnAlignment::ColumnRight, 20, "#,##0.00");
        table.Show();
        table.input().resized(9000, 4500);
        table.input().focusEntered();
    }
    void press(KeyCode key, char32_t character = 0, ShiftState shift = Shift::None) {
        if (table.input().keyDown(key, shift) == Dealt::No && character != 0)
            table.input().keyPress(character);
    }
    int anyOf(int first, int count) {
        return first + static_cast<int>(random() % static_cast<unsigned>(count));
    }
    void act() {
        const int row = anyOf(1, table.Rows() - 1);
        switch (anyOf(0, 12)) {
        case 0:
            return table.AddRow();
        case 1:
        case 2:
            if (table.MarkStatus())
                return anyOf(0, 2) == 0 ? table.InsertRow(row) : table.RemoveRow(row);
            table.CellFocus(row, 1);
            return table.MarkActiveRow();
        case 3:
            return table.ResetRow(row);
        case 4:
            return table.Check(row, anyOf(0, 2) == 0);
        case 5:
            table.CellFocus(row, anyOf(1, 2));
            press('7', U'7');
            return press(Key::Enter);
        case 6:
            table.CellFocus(row, anyOf(1, 3));
            return press(anyOf(0, 2) == 0 ? Key::Space : Key::Delete);
        case 7:
            table.CellFocus(row, 1);
            static_cast<void>(table.input().paste("a\t1.005\nb\t2\nc\tx\n"));
            return;
        case 8:
            return table.setTextMatrix(row, anyOf(1, 2), std::to_string(anyOf(0, 9)));
        case 9:
            static_cast<void>(Cells(table).appendRows(std::vector<CellValue>{"x", 1.5, true}, 3));
            return;
        case 10:
            return table.setRows(anyOf(3, 6));
        default:
            return anyOf(0, 8) == 0 ? table.TableClear() : table.setCols(anyOf(4, 2));
        }
    }

    Tablio table;
    std::mt19937 random{20040305};
};

TEST_F(ChangesTest, AWatchersPictureIsTheTables) {
    Mirror mirror(table);
    {
        const TableWatch watch(table, mirror);
        for (int step = 0; step < 3000; ++step) {
            try {
                act();
            } catch (const GridError &) {
                // The marked row went with another row count.
            }
            ASSERT_EQ(mirror.picture, readAll(table)) << "after step " << step;
        }
    }
    const Picture before = mirror.picture;
    table.setTextMatrix(1, 1, "nobody hears it");
    EXPECT_EQ(mirror.picture, before);
}

/// Writes notices down, and acts from inside them.
class Listener final : public TableNotices {
public:
    explicit Listener(Tablio &table) : table_(table) {}
    void CellChanged(int Row, int Col) override {
        log += "C" + std::to_string(Row) + "," + std::to_string(Col) + " ";
        if (Row == 1 && Col == 2) // Reads and writes another cell.
            table_.setTextMatrix(2, 2, table_.TextMatrix(1, 2));
    }
    void RowsInserted(int First, int Count) override {
        log += "+" + std::to_string(First) + "," + std::to_string(Count) + " ";
    }
    void RowsRemoved(int First, int Count) override {
        log += "-" + std::to_string(First) + "," + std::to_string(Count) + " ";
    }
    void TableCleared() override { log += "cleared "; }
    void TableReset() override { log += "reset "; }

    std::string log;

private:
    Tablio &table_;
};

TEST_F(ChangesTest, NoticesTellOnceAndWhenAllIsInOrder) {
    Listener listener(table);
    table.setNotices(&listener);
    const auto told = [&](const auto &action) {
        listener.log.clear();
        action();
        return listener.log;
    };
    EXPECT_EQ(told([&] { table.setTextMatrix(1, 2, "1.5"); }), "C1,2 C2,2 ");
    EXPECT_EQ(told([&] { table.setTextMatrix(1, 2, "1.5"); }), "");
    // Shown alike, and another number.
    EXPECT_EQ(told([&] { table.setTextMatrix(3, 2, "1.501"); }), "C3,2 ");
    EXPECT_EQ(told([&] { table.setTextMatrix(3, 2, "1.502"); }), "C3,2 ");
    EXPECT_EQ(told([&] { table.setTextMatrix(0, 1, "Caption"); }), "");
    table.CellFocus(1, 3);
    EXPECT_EQ(told([&] { press(Key::Space); }), "C1,3 ");
    EXPECT_EQ(told([&] { table.Check(1, false); }), "C1,3 ");
    table.CellFocus(1, 1);
    EXPECT_EQ(told([&] { press('A', U'a'); }), "");
    EXPECT_EQ(told([&] { press(Key::Enter); }), "C1,1 ");
    EXPECT_EQ(told([&] { table.ResetRow(1); }), "C1,1 C1,2 C2,2 ");
    EXPECT_EQ(told([&] { table.AddRow(); }), "+4,1 ");
    table.CellFocus(2, 1);
    table.MarkActiveRow();
    EXPECT_EQ(told([&] { table.RemoveRow(2); }), "-2,1 +4,1 ");
    EXPECT_EQ(told([&] { table.TableClear(); }), "cleared ");
    EXPECT_EQ(told([&] { table.setCols(5); }), "reset ");
    table.setNotices(nullptr);
    EXPECT_EQ(told([&] { table.setTextMatrix(3, 2, "1.5"); }), "");
}

} // namespace
} // namespace tablio
