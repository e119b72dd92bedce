/// Hosts do anything from inside any event. Every action is tried in every event of every way to
/// edit every kind of cell; afterwards the control has to be in order and to go on working.

#include "control/control.h"

#include <tablio/tablio.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace tablio {
namespace {

constexpr int rowCount = 8;

/// Runs an action in one kind of event, each time it comes, but not inside itself.
class MeddlingHost final : public HostEvents {
public:
    std::string event;
    std::function<void()> action;
    int fired = 0;

    void EditPreValidation(std::int16_t &, std::int16_t &, bool &) override { fire("pre"); }
    void EditOnChange(std::int16_t &, std::int16_t &, std::string &) override { fire("change"); }
    void EditPostValidation(std::int16_t &, std::int16_t &, bool &, std::string &, std::string &,
                            std::int16_t &) override {
        fire("post");
    }
    void EditLookup(std::int16_t &, std::int16_t &) override { fire("lookup"); }
    void CellFocus(std::int16_t &, std::int16_t &) override { fire("focus"); }
    void CellKeyPress(std::int16_t &, std::int16_t &, std::int16_t &) override { fire("key"); }
    void TableChange() override { fire("table"); }
    void TableKeyDown(std::int16_t &, std::int16_t &, std::int16_t &, std::int16_t &) override {
        fire("keydown");
    }
    void TableRowChange(std::int16_t &, std::int16_t &) override { fire("row"); }
    void DoubleClick(std::int16_t &, std::int16_t &) override { fire("double"); }

private:
    void fire(std::string_view name) {
        if (running_ || name != event)
            return;
        running_ = true;
        ++fired;
        struct Done {
            bool &running;
            ~Done() { running = false; }
        } done{running_};
        action();
    }

    bool running_ = false;
};

class ClipboardFace final : public Face {
public:
    std::string clipboardText() override { return "1\t2\n3\t4"; }
};

class Play {
public:
    Play() {
        grid->setFace(&face);
        grid->InitProperties();
        grid->setRows(rowCount);
        grid->setCols(6);
        grid->setWithFixedColumn(true);
        grid->setFixedCols(1);
        grid->setPrimaryColumn(1);
        grid->setColStyle(0, TColumnStyle::ColumnFixedWithAutoNumber);
        grid->setColStyle(1, TColumnStyle::ColumnInputWithLookup);
        grid->setColEditType(2, TColumnType::ColumnDecimal);
        grid->setColFormat(2, "0.00");
        grid->setColEditType(3, TColumnType::ColumnDate);
        grid->setColEditType(4, TColumnType::ColumnCombo);
        grid->input().resized(9000, 9000);
        grid->Show();
        grid->ComboAddItem("Bag");
        grid->ComboAddItem("Box");
        for (int row = 1; row < rowCount; ++row)
            grid->setTextMatrix(row, 5, "keep " + std::to_string(row));
        grid->input().focusEntered();
        grid->setHost(&host);
    }

    void key(KeyCode code, char32_t character = 0) {
        if (grid && grid->input().keyDown(code, Shift::None) == Dealt::No && grid && character != 0)
            grid->input().keyPress(character);
    }
    void type(std::string_view text) {
        for (const char character : text)
            key(character == '\n' ? Key::Enter : static_cast<KeyCode>(character),
                static_cast<unsigned char>(character));
    }

    /// Nothing is left switched off, half open or lying about.
    void expectOrder() {
        const Control &control = grid->control();
        const ControlState &state = control.state;
        EXPECT_TRUE(state.grid.view.Redraw());
        EXPECT_FALSE(state.IsClearing);
        const Widgets &widgets = state.widgets;
        const int shown = int{widgets.txtEdit.Visible()} + int{widgets.cboEdit.Visible()} +
                          int{widgets.txtDateEdit.Visible()};
        EXPECT_EQ(shown, control.session.isOpen() ? 1 : 0);
        EXPECT_EQ(widgets.picDate.Visible(), state.calendarIsOpen);
        if (!control.session.isOpen()) {
            EXPECT_FALSE(state.calendarIsOpen);
            EXPECT_FALSE(widgets.cmdLookup.Visible());
            EXPECT_FALSE(widgets.cmdCalender.Visible());
            EXPECT_TRUE(state.menu.mnuMarkRow.enabled);
            EXPECT_TRUE(state.menu.mnuTableClear.enabled);
        }
    }

    /// An operator can go on: end what is open, type a cell, and find it.
    void expectWorks() {
        host.action = [] {};
        key(Key::Escape);
        key(Key::Escape);
        grid->setRows(rowCount);
        grid->setCols(6);
        grid->CellFocus(2, 5);
        grid->input().focusEntered();
        type("Zz\n");
        EXPECT_EQ(grid->TextMatrix(2, 5), "Zz");
    }

    ClipboardFace face;
    MeddlingHost host;
    std::unique_ptr<Tablio> grid = std::make_unique<Tablio>();
};

struct Named {
    const char *name;
    std::function<void(Play &)> run;
};

const std::vector<Named> &actions() {
    static const std::vector<Named> list{
        {"open another edit",
         [](Play &play) {
             play.grid->CellFocus(4, 2);
             play.key(Key::F2);
         }},
        {"type into it", [](Play &play) { play.type("7"); }},
        {"press Enter", [](Play &play) { play.type("\n"); }},
        {"press Escape", [](Play &play) { play.type("\x1b"); }},
        {"clear the table", [](Play &play) { play.grid->TableClear(); }},
        {"reset the row", [](Play &play) { play.grid->ResetRow(2); }},
        {"remove the row",
         [](Play &play) {
             play.grid->MarkActiveRow();
             play.grid->RemoveRow(2);
         }},
        {"insert a row",
         [](Play &play) {
             play.grid->MarkActiveRow();
             play.grid->InsertRow(2);
         }},
        {"add a row", [](Play &play) { play.grid->AddRow(); }},
        {"leave two rows", [](Play &play) { play.grid->setRows(2); }},
        {"leave one column", [](Play &play) { play.grid->setCols(1); }},
        {"leave nothing",
         [](Play &play) {
             play.grid->setRows(0);
             play.grid->setCols(0);
         }},
        {"refill the combo",
         [](Play &play) {
             play.grid->ComboClear();
             play.grid->ComboAddItem("Litre");
         }},
        {"answer the lookup", [](Play &play) { play.grid->setLookupResult(2, 1, "X1"); }},
        {"scroll away", [](Play &play) { play.grid->input().scrollTo(7, 5); }},
        {"take the focus", [](Play &play) { play.grid->input().focusLeft(); }},
        {"disable",
         [](Play &play) {
             play.grid->setEnabled(false);
             play.grid->setEnabled(true);
         }},
        {"show again", [](Play &play) { play.grid->Show(); }},
    };
    return list;
}

const std::vector<Named> &gestures() {
    static const std::vector<Named> list{
        {"type and Enter", [](Play &play) { play.type("12\n"); }},
        {"type and Escape", [](Play &play) { play.type("12\x1b"); }},
        {"F10 and Enter",
         [](Play &play) {
             play.key(Key::F10);
             play.type("\n");
         }},
        {"methods",
         [](Play &play) {
             play.grid->AddRow();
             if (play.grid)
                 play.grid->TableClear();
         }},
        {"double click and elsewhere",
         [](Play &play) {
             const Rect cell = play.grid->control().state.grid.view.cellRect(2, 1);
             play.grid->input().doubleClick(cell.left + 30, cell.top + 30);
             play.type("3");
             if (play.grid)
                 play.grid->input().mouseDown(MouseButton::Left, 3000, 1400);
             if (play.grid)
                 play.grid->input().mouseUp(MouseButton::Left, 3000, 1400);
         }},
        {"F2, lookup button",
         [](Play &play) {
             play.key(Key::F2);
             if (play.grid)
                 play.grid->input().buttonPressed(WidgetId::cmdLookup);
         }},
        {"Delete and Down",
         [](Play &play) {
             play.key(Key::Delete);
             play.key(Key::Down);
         }},
        {"paste a block", [](Play &play) { play.grid->input().keyDown(Key::V, Shift::Ctrl); }},
    };
    return list;
}

const char *const events[] = {"pre", "change", "post",    "lookup", "focus",
                              "key", "table",  "keydown", "row",    "double"};

/// Plays one gesture on each kind of cell with one meddling handler.
void playAll(const char *event, const Named &action, bool mayEnd,
             const std::function<void(Play &)> &check) {
    for (const Named &gesture : gestures()) {
        for (int col = 1; col < 6; ++col) {
            SCOPED_TRACE(std::string(event) + ": " + action.name + ", " + gesture.name +
                         ", column " + std::to_string(col));
            Play play;
            play.grid->CellFocus(2, col);
            play.host.event = event;
            play.host.action = [&] { action.run(play); };
            try {
                gesture.run(play);
            } catch (const std::exception &) {
                // A grid error of the action, or the action's own: both reach the caller.
            }
            if (play.grid)
                check(play);
            else
                EXPECT_TRUE(mayEnd);
            if (testing::Test::HasFailure())
                return;
        }
    }
}

TEST(Reentrancy, AnythingFromInsideAnyEventLeavesTheControlInOrder) {
    int fired = 0;
    for (const char *event : events) {
        for (const Named &action : actions()) {
            playAll(event, action, false, [&fired](Play &play) {
                fired += play.host.fired;
                play.expectOrder();
                play.expectWorks();
            });
        }
    }
    EXPECT_GT(fired, 5000) << "the handlers hardly ever ran";
}

TEST(Reentrancy, AThrowingHandlerIsHeardByTheCallerAndLeavesTheControlInOrder) {
    const Named action{"throw", [](Play &) { throw std::runtime_error("host failed"); }};
    for (const char *event : events) {
        playAll(event, action, false, [](Play &play) {
            play.expectOrder();
            play.expectWorks();
        });
    }
}

TEST(Reentrancy, DestroyingTheControlInAnyEventIsSafe) {
    const Named action{"destroy", [](Play &play) { play.grid.reset(); }};
    for (const char *event : events)
        playAll(event, action, true, [](Play &) {});
}

} // namespace
} // namespace tablio
