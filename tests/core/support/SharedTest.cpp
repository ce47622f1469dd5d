#include "support/Shared.h"

#include <gtest/gtest.h>
#include <string>

namespace vanoka {

namespace {

TEST(Shared, IsOneValueForAllItsCopies) {
    const Shared<std::string> first(std::make_shared<const std::string>("value"));
    const Shared<std::string> second = first;
    EXPECT_EQ(&*first, &*second);
    EXPECT_EQ(second->size(), 5U);
}

TEST(Shared, StaysWhereItWasMovedFrom) {
    Shared<std::string> from(std::make_shared<const std::string>("value"));
    Shared<std::string> to(std::make_shared<const std::string>("other"));
    to = std::move(from);
    const Shared<std::string> third = std::move(to);
    EXPECT_EQ(*from + *to + *third, "valuevaluevalue"); // NOLINT(bugprone-use-after-move)
}

} // namespace

} // namespace vanoka
