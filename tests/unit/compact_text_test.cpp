#include "model/grid/compact_text.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace tablio {
namespace {

/// Every length around the border between the object itself and the heap.
const std::string lengths[] = {"",
                               "a",
                               std::string(14, 'b'),
                               std::string(15, 'c'),
                               std::string(16, 'd'),
                               std::string(300, 'e'),
                               std::string("nul\0inside", 10),
                               std::string(15, '\x7f'),
                               std::string(15, '\xff')};

TEST(CompactText, EveryTextReplacesEveryOther) {
    for (const std::string &before : lengths) {
        for (const std::string &after : lengths) {
            CompactText text(before);
            text.assign(after);
            EXPECT_EQ(text.view(), after);
            CompactText target(before);
            const CompactText source(after);
            target = source;
            EXPECT_EQ(target.view(), after);
            EXPECT_EQ(target.empty(), after.empty());
            EXPECT_EQ(CompactText(target).view(), after);
            target = CompactText(before);
            EXPECT_EQ(target.view(), before);
        }
    }
}

TEST(CompactText, MayBeGivenAPartOfItself) {
    CompactText text("a text that is too long to stand in the object itself");
    text.assign(text.view().substr(2, 30));
    EXPECT_EQ(text.view(), "text that is too long to stand");
    text.assign(text.view().substr(0, 4));
    EXPECT_EQ(text.view(), "text");
    text.assign(text.view().substr(1));
    EXPECT_EQ(text.view(), "ext");
    const CompactText &same = text;
    text = same;
    EXPECT_EQ(text.view(), "ext");
}

TEST(CompactText, SurvivesAVectorThatGrowsAndIsShuffled) {
    std::mt19937 random(7);
    std::vector<CompactText> texts;
    std::vector<std::string> expected;
    for (int step = 0; step < 2000; ++step) {
        const std::size_t at = expected.empty() ? 0 : random() % expected.size();
        const std::string text(random() % 40, static_cast<char>('a' + step % 26));
        switch (random() % 4) {
        case 0:
            texts.insert(texts.begin() + static_cast<std::ptrdiff_t>(at), CompactText(text));
            expected.insert(expected.begin() + static_cast<std::ptrdiff_t>(at), text);
            break;
        case 1:
            if (!texts.empty()) {
                texts.erase(texts.begin() + static_cast<std::ptrdiff_t>(at));
                expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(at));
            }
            break;
        default:
            texts.emplace_back(text);
            expected.push_back(text);
        }
    }
    ASSERT_EQ(texts.size(), expected.size());
    for (std::size_t at = 0; at < texts.size(); ++at)
        ASSERT_EQ(texts[at].view(), expected[at]);
}

} // namespace
} // namespace tablio
