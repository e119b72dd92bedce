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
    void widgetChanged(WidgetId /*widget*/) override { ++redraws; }

    void load(const char *text, int start, int length = 0) {
        box.load(text);
        box.select(start, length);
        changes = 0;
    }

    /// The text with | for the caret or [ ] around the selection.
    [[nodiscard]] std::string picture() const {
        std::string text = box.Text();
        const std::string selected(box.SelText());
        // The texts here are of plain letters, or are compared by positions.
        if (selected.empty())
            return text.insert(static_cast<std::size_t>(box.SelStart()), "|");
        const auto from = static_cast<std::size_t>(box.SelStart());
        return text.insert(from + selected.size(), "]").insert(from, "[");
    }

    TextBox box{WidgetId::txtEdit, *this};
    int changes = 0;
    int redraws = 0;
};

TEST_F(TextBoxTest, KeysDoWhatTheyDoInAnyTextBox) {
    const struct {
        int start;
        int length;
        KeyCode key;
        ShiftState shift;
        const char *expected;
    } cases[] = {
        {2, 0, Key::Left, Shift::None, "a|bcd"},    {0, 0, Key::Left, Shift::None, "|abcd"},
        {4, 0, Key::Right, Shift::None, "abcd|"},   {1, 2, Key::Left, Shift::None, "a|bcd"},
        {1, 2, Key::Right, Shift::None, "abc|d"},   {2, 0, Key::Home, Shift::None, "|abcd"},
        {2, 0, Key::End, Shift::None, "abcd|"},     {2, 0, Key::Left, Shift::Shift, "a[b]cd"},
        {2, 0, Key::Home, Shift::Shift, "[ab]cd"},  {2, 0, Key::End, Shift::Shift, "ab[cd]"},
        {1, 2, Key::Right, Shift::Shift, "a[bcd]"}, {1, 0, Key::Delete, Shift::None, "a|cd"},
        {4, 0, Key::Delete, Shift::None, "abcd|"},  {1, 2, Key::Delete, Shift::None, "a|d"},
        {2, 0, Key::A, Shift::Ctrl, "[abcd]"},
    };
    for (const auto &each : cases) {
        load("abcd", each.start, each.length);
        EXPECT_TRUE(box.keyDown(each.key, each.shift));
        EXPECT_EQ(picture(), each.expected) << each.key << " from " << each.start;
    }
    EXPECT_FALSE(box.keyDown(Key::Tab, Shift::None));
    EXPECT_FALSE(box.keyDown(Key::Left, Shift::Alt));
}

TEST_F(TextBoxTest, ASelectionGrowsAndShrinksFromWhereItBegan) {
    load("abcd", 2);
    box.keyDown(Key::Right, Shift::Shift);
    EXPECT_EQ(picture(), "ab[c]d");
    box.keyDown(Key::Left, Shift::Shift);
    box.keyDown(Key::Left, Shift::Shift);
    EXPECT_EQ(picture(), "a[b]cd") << "through the anchor to its other side";
    box.keyDown(Key::End, Shift::Shift);
    EXPECT_EQ(picture(), "ab[cd]");
}

TEST_F(TextBoxTest, InsertAndBackspaceReplaceTheSelection) {
    load("abcd", 1, 2);
    box.insert("xyz");
    EXPECT_EQ(picture(), "axyz|d");
    box.select(1, 3);
    box.backspace();
    EXPECT_EQ(picture(), "a|d");
    box.backspace();
    EXPECT_EQ(picture(), "|d");
    changes = 0;
    box.backspace();
    EXPECT_EQ(picture(), "|d");
    EXPECT_EQ(changes, 0) << "nothing was there to be taken";
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
    load("abc", 0);
    box.select(-5, 2);
    EXPECT_EQ(picture(), "[ab]c");
    box.select(2, 99);
    EXPECT_EQ(picture(), "ab[c]");
    box.select(99, 1);
    EXPECT_EQ(picture(), "abc|");
    box.settle("x", 7, 7);
    EXPECT_EQ(picture(), "x|");
}

TEST_F(TextBoxTest, TellsEachChangeOfTheTextAndNoOther) {
    load("abc", 3);
    box.select(0, 2);
    box.keyDown(Key::End, Shift::None);
    box.load("other");
    box.reshape("oth,er");
    box.setText("oth,er");
    box.settle("oth,er", 2, 0);
    EXPECT_EQ(changes, 0);
    box.insert("x");
    box.setText("new");
    box.settle("newer", 5, 0);
    EXPECT_EQ(changes, 3);
}

TEST_F(TextBoxTest, UndoGoesBackChangeByChange) {
    load("ab", 2);
    box.insert("c");
    box.keyDown(Key::Home, Shift::None);
    box.keyDown(Key::Delete, Shift::None);
    box.keyDown(Key::Z, Shift::Ctrl);
    EXPECT_EQ(box.Text(), "abc");
    box.keyDown(Key::Z, Shift::Ctrl);
    EXPECT_EQ(box.Text(), "ab");
    changes = 0;
    box.keyDown(Key::Z, Shift::Ctrl);
    EXPECT_EQ(box.Text(), "ab");
    EXPECT_EQ(changes, 0);
    box.load("fresh");
    box.keyDown(Key::Z, Shift::Ctrl);
    EXPECT_EQ(box.Text(), "fresh") << "another cell's text is no earlier state of this one";
}

TEST_F(TextBoxTest, NoSequenceOfKeysPutsTheCaretOutsideOrBreaksTheText) {
    const KeyCode keys[] = {Key::Left,   Key::Right, Key::Home, Key::End,
                            Key::Delete, Key::A,     Key::Z};
    const char *const texts[] = {"a", "é", "😀", "bc"};
    std::mt19937 random(3);
    for (int step = 0; step < 20000; ++step) {
        switch (random() % 4) {
        case 0:
            box.insert(texts[random() % 4]);
            break;
        case 1:
            box.backspace();
            break;
        default: {
            const KeyCode key = keys[random() % 7];
            const bool ctrl = key == Key::A || key == Key::Z;
            box.keyDown(key, ctrl ? Shift::Ctrl : random() % 2 == 0 ? Shift::Shift : Shift::None);
        }
        }
        if (box.length() > 40)
            box.load("");
        ASSERT_GE(box.SelStart(), 0);
        ASSERT_LE(box.SelStart() + box.SelLength(), box.length());
        // A caret inside a character would have cut it in two by now.
        for (const char each : box.Text())
            ASSERT_TRUE(std::string_view("abc\xC3\xA9\xF0\x9F\x98\x80").find(each) !=
                        std::string_view::npos);
        std::string count = box.Text();
        ASSERT_EQ(std::count(count.begin(), count.end(), '\xF0'),
                  std::count(count.begin(), count.end(), '\x80'));
        ASSERT_EQ(std::count(count.begin(), count.end(), '\xC3'),
                  std::count(count.begin(), count.end(), '\xA9'));
    }
}

} // namespace
} // namespace tablio
