#include "widgets/text_box.h"

#include <gtest/gtest.h>

#include <random>

namespace tablio {
namespace {

class TextBoxTest : public testing::Test, public WidgetListener {
protected:
    TextBoxTest() {
        box.onChange = [this] { ++changes; };
    }
    void widgetChanged(WidgetId /*widget*/) override {}

    void load(const char *text, int start, int length = 0) {
        box.load(text);
        box.select(start, length);
        changes = 0;
    }

    /// "L" "R" "H" "E": the caret keys, small ones with Shift; "D" Delete, "<" Backspace, "A"
    /// selects all, "Z" undoes; anything else is inserted.
    void play(std::string_view actions) {
        const std::string_view keys = "LRHEDlrheAZ";
        const KeyCode codes[] = {Key::Left,   Key::Right, Key::Home,  Key::End,
                                 Key::Delete, Key::Left,  Key::Right, Key::Home,
                                 Key::End,    Key::A,     Key::Z};
        for (const char action : actions) {
            const std::size_t at = keys.find(action);
            if (action == '<')
                box.backspace();
            else if (at == std::string_view::npos)
                box.insert(std::string(1, action));
            else
                EXPECT_TRUE(box.keyDown(codes[at], at < 5   ? Shift::None
                                                   : at < 9 ? Shift::Shift
                                                            : Shift::Ctrl));
        }
    }

    /// The text, of plain letters, with | for the caret or [ ] around the selection.
    [[nodiscard]] std::string picture() const {
        std::string text = box.Text();
        const auto from = static_cast<std::size_t>(box.SelStart());
        if (box.SelLength() == 0)
            return text.insert(from, "|");
        return text.insert(from + static_cast<std::size_t>(box.SelLength()), "]").insert(from, "[");
    }

    TextBox box{WidgetId::txtEdit, *this};
    int changes = 0;
};

TEST_F(TextBoxTest, KeysDoWhatTheyDoInAnyTextBox) {
    const struct {
        int start;
        int length;
        const char *actions;
        const char *expected;
        int changes;
    } cases[] = {
        {2, 0, "L", "a|bcd", 0},
        {0, 0, "L", "|abcd", 0},
        {4, 0, "R", "abcd|", 0},
        {1, 2, "L", "a|bcd", 0},
        {1, 2, "R", "abc|d", 0},
        {2, 0, "H", "|abcd", 0},
        {2, 0, "E", "abcd|", 0},
        {2, 0, "l", "a[b]cd", 0},
        {2, 0, "h", "[ab]cd", 0},
        {2, 0, "e", "ab[cd]", 0},
        {1, 2, "r", "a[bcd]", 0},
        {1, 0, "D", "a|cd", 1},
        {4, 0, "D", "abcd|", 0},
        {1, 2, "D", "a|d", 1},
        {2, 0, "A", "[abcd]", 0},
        {1, 2, "x", "ax|d", 1},
        {1, 2, "<", "a|d", 1},
        {1, 0, "<<", "|bcd", 1},
        // A selection grows and shrinks from where it began, through its anchor too.
        {2, 0, "rll", "a[b]cd", 0},
        {2, 0, "rlle", "ab[cd]", 0},
        // Undo goes back change by change, but not to another cell's text.
        {4, 0, "eHDZ", "|abcd", 2},
        {4, 0, "xHDZZZ", "abcd|", 4},
        {4, 0, "Z", "abcd|", 0},
    };
    for (const auto &each : cases) {
        SCOPED_TRACE(each.actions);
        load("abcd", each.start, each.length);
        play(each.actions);
        EXPECT_EQ(picture(), each.expected);
        EXPECT_EQ(changes, each.changes);
    }
    EXPECT_FALSE(box.keyDown(Key::Tab, Shift::None));
    EXPECT_FALSE(box.keyDown(Key::Left, Shift::Alt));
}

TEST_F(TextBoxTest, PositionsCountUtf16UnitsAndNeverSplitACharacter) {
    // 1, 2 and 3 bytes of one unit each, then 4 bytes of two.
    load("aé日😀z", 0);
    EXPECT_EQ(box.length(), 6);
    box.select(3, 2);
    EXPECT_EQ(box.SelText(), "😀");
    box.select(3, 0);
    box.keyDown(Key::Right, Shift::None);
    EXPECT_EQ(box.SelStart(), 5);
    box.keyDown(Key::Left, Shift::None);
    EXPECT_EQ(box.SelStart(), 3);
    box.keyDown(Key::Delete, Shift::None);
    EXPECT_EQ(box.Text(), "aé日z");
    box.backspace();
    EXPECT_EQ(box.Text(), "aéz");
    box.insert("😀");
    EXPECT_EQ(box.Text(), "aé😀z");
    EXPECT_EQ(box.SelStart(), 4);
    box.backspace();
    EXPECT_EQ(box.Text(), "aéz");
}

TEST_F(TextBoxTest, SelectionsOutsideTheTextAreMovedToItsEnds) {
    const struct {
        int start;
        int length;
        const char *expected;
    } cases[] = {{-5, 2, "[ab]c"}, {2, 99, "ab[c]"}, {99, 1, "abc|"}};
    for (const auto &each : cases) {
        load("abc", each.start, each.length);
        EXPECT_EQ(picture(), each.expected);
    }
    box.settle("x", 7, 14);
    EXPECT_EQ(picture(), "x|");
}

TEST_F(TextBoxTest, TellsEachChangeOfTheTextAndNoOther) {
    load("abc", 3);
    box.load("other");
    box.reshape("oth,er");
    box.setText("oth,er");
    box.settle("oth,er", 2, 2);
    EXPECT_EQ(changes, 0);
    box.setText("new");
    box.settle("newer", 5, 5);
    EXPECT_EQ(changes, 2);
}

TEST_F(TextBoxTest, NoSequenceOfKeysPutsTheCaretOutsideOrBreaksTheText) {
    const char *const actions[] = {"L", "R", "H", "E", "D", "l", "r", "h", "e", "A", "Z", "<"};
    const char *const texts[] = {"a", "é", "😀", "bc"};
    std::mt19937 random(3);
    for (int step = 0; step < 20000; ++step) {
        if (random() % 4 == 0)
            box.insert(texts[random() % 4]);
        else
            play(actions[random() % 12]);
        if (box.length() > 40)
            box.load("");
        ASSERT_GE(box.SelStart(), 0);
        ASSERT_LE(box.SelStart() + box.SelLength(), box.length());
        // A caret inside a character would have cut it in two by now.
        std::string rest = box.Text();
        for (const std::string_view whole : {"a", "bc", "b", "c", "é", "😀"}) {
            for (std::size_t at = 0; (at = rest.find(whole)) != std::string::npos;)
                rest.replace(at, whole.size(), whole.size(), ' ');
        }
        ASSERT_EQ(rest.find_first_not_of(' '), std::string::npos) << box.Text();
    }
}

} // namespace
} // namespace tablio
