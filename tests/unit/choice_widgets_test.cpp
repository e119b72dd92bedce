/// The masked box keeps its shape and the combo its list, whatever is typed, deleted or pasted.

#include "unit/box_keys.h"
#include "widgets/combo_box.h"
#include "widgets/masked_box.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tablio {
namespace {

class NoListener final : public WidgetListener {
public:
    void widgetChanged(WidgetId) override {}
};

TEST(MaskedBox, KeepsItsShape) {
    const struct {
        const char *loaded;
        std::string_view actions;
        const char *text;
        int caret;
    } cases[] = {
        {"", "05032004", "05/03/2004", 10},      {"", "5.3/2004", "05/03/2004", 10},
        {"", "abc ?", "__/__/____", 0},          {"", "05<", "0_/__/____", 1},
        {"01/02/2003", "RRD", "01/_2/2003", 3},  {"01/02/2003", "ED", "01/02/2003", 10},
        {"01/02/2003", "A7", "7_/__/____", 1},   {"01/02/2003", "Rrr9", "09/02/2003", 3},
        {"01/02/2003", "Ell<", "01/02/20__", 8}, {"not a date", "", "__/__/____", 0},
        {"1/2/2003", "", "01/02/2003", 0},
    };
    NoListener listener;
    for (const auto &each : cases) {
        SCOPED_TRACE(std::string(each.loaded) + " then " + std::string(each.actions));
        MaskedBox box(WidgetId::txtDateEdit, listener);
        box.load(each.loaded);
        playKeys(box, each.actions);
        EXPECT_EQ(box.Text(), each.text);
        EXPECT_EQ(box.SelStart(), each.caret);
        EXPECT_EQ(box.SelLength(), 0);
    }
}

TEST(ComboBox, TypingCompletesFromTheList) {
    const struct {
        std::vector<const char *> typed;
        const char *text;
        int index;
        int selStart;
        int selLength;
    } cases[] = {
        // What is typed takes the spelling of an item only while one completes it.
        {{"b"}, "Bag", 0, 1, 2},
        {{"b", "o"}, "Bottle", 1, 2, 4},
        {{"b", "o", "x"}, "Box", 2, 3, 0},
        {{"b", "o", "x", "e"}, "boxe", -1, 4, 0},
        {{"z"}, "z", -1, 1, 0},
        {{"b", "<"}, "b", -1, 1, 0},
        {{"B", "a", "g", "<", "<"}, "B", -1, 1, 0},
        {{"s", "t", "ü"}, "Stück", 3, 3, 2},
        {{"<"}, "", -1, 0, 0},
    };
    NoListener listener;
    for (const auto &each : cases) {
        SCOPED_TRACE(each.text);
        ComboBox box(WidgetId::cboEdit, listener);
        for (const char *item : {"Bag", "Bottle", "Box", "Stück"})
            box.addItem(item);
        for (const std::string key : each.typed)
            key == "<" ? box.backspace() : box.insert(key);
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
