#include "model/grid/compact_text.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

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
            EXPECT_EQ(CompactText(std::move(target)).view(), before);
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

} // namespace
} // namespace tablio
