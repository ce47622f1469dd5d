#include "text/Hasher.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace vanoka {

namespace {

using List = std::vector<std::string>;

std::size_t hashOf(const List& one, const List& other) {
    Hasher hasher;
    hasher.feedEach(one);
    hasher.feedEach(other);
    return hasher.value();
}

TEST(Hasher, TellsTextsThatReadAlikeAsTheSame) {
    EXPECT_EQ(hashOf({"\u0D9A\u0DDC"}, {}), hashOf({"\u0D9A\u0DD9\u0DCF"}, {}));
}

TEST(Hasher, TellsInWhichOrderTextsCome) {
    EXPECT_NE(hashOf({"a", "b"}, {}), hashOf({"b", "a"}, {}));
    EXPECT_NE(hashOf({"a"}, {"b"}), hashOf({"b"}, {"a"}));
}

TEST(Hasher, TellsWhereOneListEndsAndTheNextBegins) {
    EXPECT_NE(hashOf({"a"}, {"b", "c"}), hashOf({"a", "b"}, {"c"}));
    EXPECT_NE(hashOf({"a"}, {}), hashOf({}, {"a"}));
}

} // namespace

} // namespace vanoka
