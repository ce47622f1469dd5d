#include "support/CopiedEmpty.h"

#include <gtest/gtest.h>

namespace vanoka {

namespace {

TEST(CopiedEmpty, KeepsWhatItMadeUntilItIsAssignedTo) {
    CopiedEmpty<int> found;
    EXPECT_EQ(found.get(), nullptr);
    EXPECT_EQ(found.make(3), 3);
    EXPECT_EQ(*found.get(), 3);
    const CopiedEmpty<int> copy = found;
    EXPECT_EQ(copy.get(), nullptr);
    EXPECT_EQ(*found.get(), 3);
    found = copy;
    EXPECT_EQ(found.get(), nullptr) << "it may be of what the owner is no more";
}

} // namespace

} // namespace vanoka
