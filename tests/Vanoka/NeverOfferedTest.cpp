#include "NeverOffered.h"

#include <gtest/gtest.h>

namespace vanoka {

namespace {

TEST(NeverOffered, HoldsAWordInEveryFormOfIt) {
    const NeverOffered words("# insults\n\nfool \ncaf\u00E9\r\n\u0D9A\u0DCA\u200D\u0DBB\u0DB8\nbad\xFF\n");
    EXPECT_EQ(words.size(), 3U);
    for (const char* word :
         {"fool", "Fool", "FOOL", "cafe\u0301", "\u0D9A\u0DCA\u200D\u0DBB\u0DB8", "\u0D9A\u0DCA\u0DBB\u0DB8"})
        EXPECT_TRUE(words.holds(word)) << word;
    for (const char* word : {"", "foo", "fools", "# insults", "\u0D9A\u0DCA\u0DBB", "bad\xFF"})
        EXPECT_FALSE(words.holds(word)) << word;
    EXPECT_FALSE(NeverOffered().holds("fool"));
}

} // namespace

} // namespace vanoka
