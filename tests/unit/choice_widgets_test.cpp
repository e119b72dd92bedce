/// The masked box keeps its shape and the combo its list, whatever is typed, deleted or pasted.

#include "widgets/combo_box.h"
#include "widgets/masked_box.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace tablio {
namespace {

class NoListener final : public WidgetListener {
public:
    void widgetChanged(WidgetId) override {}
};

/// What a user does, in one word: "<" Backspace, "x" Delete, "L" "R" "H" "E" caret keys, "S" and
/// "T" Left and Right with Shift, "A" selects all; anything else is typed.
template <typename Box> void play(Box &box, std::string_view actions) {
    for (const char action : actions) {
        switch (action) {
        case '<':
            box.backspace();
            break;
        case 'x':
            box.keyDown(Key::Delete, Shift::None);
            break;
        case 'L':
        case 'R':
            box.keyDown(action == 'L' ? Key::Left : Key::Right, Shift::None);
            break;
        case 'S':
        case 'T':
            box.keyDown(action == 'S' ? Key::Left : Key::Right, Shift::Shift);
            break;
        case 'H':
        case 'E':
            box.keyDown(action == 'H' ? Key::Home : Key::End, Shift::None);
            break;
        case 'A':
            box.selectAll();
            break;
        default:
            box.type(static_cast<unsigned char>(action));
        }
    }
}

TEST(MaskedBox, KeepsItsShape) {
    struct Case {
        std::string_view loaded;
        std::string_view actions;
        std::string_view text;
        int caret;
    };
    const std::vector<Case> cases{
        {"", "05032004", "05/03/2004", 10},
        {"", "0503200499", "05/03/2004", 10},
        {"", "05", "05/__/____", 3},
        {"", "5/3/2004", "05/03/2004", 10},
        {"", "5.3.2004", "05/03/2004", 10},
        {"", "/", "__/__/____", 0},
        {"", "abc ?", "__/__/____", 0},
        {"", "05<", "0_/__/____", 1},
        {"", "050<<", "0_/__/____", 1},
        {"", "0503<<<<<<", "__/__/____", 0},
        {"01/02/2003", "9", "91/02/2003", 1},
        {"01/02/2003", "25122026", "25/12/2026", 10},
        {"01/02/2003", "x", "_1/02/2003", 0},
        {"01/02/2003", "RRx", "01/_2/2003", 3},
        {"01/02/2003", "Ex", "01/02/2003", 10},
        {"01/02/2003", "E<<<<", "01/02/____", 6},
        {"01/02/2003", "Ax", "__/__/____", 0},
        {"01/02/2003", "A7", "7_/__/____", 1},
        {"01/02/2003", "RTT9", "09/02/2003", 3},
        {"01/02/2003", "ESS<", "01/02/20__", 8},
        {"not a date", "", "__/__/____", 0},
        {"1/2/2003", "", "01/02/2003", 0},
    };
    NoListener listener;
    for (const Case &each : cases) {
        SCOPED_TRACE(std::string(each.loaded) + " then " + std::string(each.actions));
        MaskedBox box(WidgetId::txtDateEdit, listener);
        box.load(std::string(each.loaded));
        play(box, each.actions);
        EXPECT_EQ(box.Text(), each.text);
        EXPECT_EQ(box.SelStart(), each.caret);
        EXPECT_EQ(box.SelLength(), 0);
    }
}

TEST(MaskedBox, NoSequenceOfActionsBreaksTheShape) {
    NoListener listener;
    std::mt19937 random(7);
    const std::string_view actions = "0123456789/.-<xLRSTHEA a";
    MaskedBox box(WidgetId::txtDateEdit, listener);
    for (int step = 0; step < 50000; ++step) {
        play(box, actions.substr(random() % actions.size(), 1));
        ASSERT_EQ(box.Text().size(), 10U);
        for (std::size_t at = 0; at < 10; ++at) {
            const char character = box.Text()[at];
            const bool slash = at == 2 || at == 5;
            ASSERT_TRUE(slash ? character == '/'
                              : character == '_' || (character >= '0' && character <= '9'))
                << box.Text() << " after step " << step;
        }
        ASSERT_GE(box.SelStart(), 0);
        ASSERT_LE(box.SelEnd(), box.length());
    }
}

TEST(ComboBox, TypingCompletesFromTheList) {
    struct Case {
        std::string_view typed;
        std::string_view text;
        int index;
        int selStart;
        int selLength;
    };
    const std::vector<Case> cases{
        // What is typed takes the spelling of an item only while one completes it.
        {"b", "Bag", 0, 1, 2},        {"bo", "Bottle", 1, 2, 4}, {"box", "Box", 2, 3, 0},
        {"boxes", "boxes", -1, 5, 0}, {"z", "z", -1, 1, 0},      {"b<", "b", -1, 1, 0},
        {"Bag<<", "B", -1, 1, 0},     {"stü", "Stück", 3, 3, 2}, {"<", "", -1, 0, 0},
    };
    NoListener listener;
    for (const Case &each : cases) {
        SCOPED_TRACE(std::string(each.typed));
        ComboBox box(WidgetId::cboEdit, listener);
        for (const char *item : {"Bag", "Bottle", "Box", "Stück"})
            box.addItem(item);
        for (std::size_t at = 0; at < each.typed.size();) {
            const std::size_t bytes = static_cast<unsigned char>(each.typed[at]) >= 0x80 ? 2 : 1;
            if (each.typed[at] == '<')
                box.backspace();
            else
                box.insert(each.typed.substr(at, bytes));
            at += bytes;
        }
        EXPECT_EQ(box.Text(), each.text);
        EXPECT_EQ(box.ListIndex(), each.index);
        EXPECT_EQ(box.SelStart(), each.selStart);
        EXPECT_EQ(box.SelLength(), each.selLength);
    }
}

TEST(ComboBox, KeysMoveThroughTheListAndARefilledListKeepsTheText) {
    NoListener listener;
    ComboBox box(WidgetId::cboEdit, listener);
    int changes = 0;
    box.onChange = [&changes] { ++changes; };
    EXPECT_TRUE(box.keyDown(Key::Down, Shift::None)) << "an empty list has nowhere to go";
    EXPECT_EQ(box.ListIndex(), -1);
    for (int item = 0; item < 20; ++item)
        box.addItem("item " + std::to_string(item));
    box.load("item 4");
    EXPECT_EQ(box.ListIndex(), 4);
    EXPECT_EQ(changes, 0);
    const std::vector<std::pair<KeyCode, int>> keys{
        {Key::Down, 5},      {Key::Up, 4},    {Key::PageDown, 12},
        {Key::PageDown, 19}, {Key::Down, 19}, {Key::PageUp, 11},
    };
    for (const auto &[key, index] : keys) {
        box.keyDown(key, Shift::None);
        EXPECT_EQ(box.ListIndex(), index);
        EXPECT_EQ(box.Text(), "item " + std::to_string(index));
    }
    EXPECT_EQ(changes, 5) << "Down on the last item changed nothing";
    box.keyDown(Key::F4, Shift::None);
    EXPECT_TRUE(box.DroppedDown());
    box.keyDown(Key::Home, Shift::None);
    EXPECT_EQ(box.ListIndex(), 0);
    box.keyDown(Key::Down, Shift::Alt);
    EXPECT_FALSE(box.DroppedDown());

    box.clearItems();
    EXPECT_EQ(box.Text(), "item 0");
    EXPECT_EQ(box.ListIndex(), -1);
    box.addItem("other");
    box.addItem("item 0");
    EXPECT_EQ(box.ListIndex(), 1);
    box.setListIndex(9);
    EXPECT_EQ(box.Text(), "");
}

} // namespace
} // namespace tablio
