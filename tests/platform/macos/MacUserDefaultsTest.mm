#import "MacUserDefaults.h"

#import <Foundation/Foundation.h>

#include <gtest/gtest.h>

namespace vanoka {

namespace {

using namespace std::string_literals;

constexpr const char* name = "vanoka.test.value";

class MacUserDefaultsTest : public testing::Test {
protected:
    MacUserDefaultsTest() { defaults.setData(name, std::nullopt); }

    NSUserDefaults* platform() { return [NSUserDefaults standardUserDefaults]; }

    mac::MacUserDefaults defaults;
};

TEST_F(MacUserDefaultsTest, KeepBytesAsTheyAre) {
    EXPECT_EQ(defaults.data(name), std::nullopt);
    for (const std::string& bytes : {""s, "{}"s, "\0\xFF\n"s, "\u0D9A"s, std::string(100'000, 'x')}) {
        defaults.setData(name, bytes);
        EXPECT_EQ(defaults.data(name), bytes);
        EXPECT_EQ([[platform() dataForKey:@"vanoka.test.value"] length], bytes.size());
    }
    defaults.setData(name, std::nullopt);
    EXPECT_EQ(defaults.data(name), std::nullopt);
    EXPECT_EQ([platform() objectForKey:@"vanoka.test.value"], nil) << "it is removed";
}

TEST_F(MacUserDefaultsTest, AValueThatIsNoDataCountsAsAbsent) {
    [platform() setObject:@"text" forKey:@"vanoka.test.value"];
    EXPECT_EQ(defaults.data(name), std::nullopt);
    [platform() setObject:[NSNumber numberWithInt:1] forKey:@"vanoka.test.value"];
    EXPECT_EQ(defaults.data(name), std::nullopt);
    EXPECT_NE([platform() objectForKey:@"vanoka.test.value"], nil) << "and stays";
    defaults.setData(name, "bytes");
    EXPECT_EQ(defaults.data(name), "bytes");
    defaults.setData(name, std::nullopt);
}

TEST_F(MacUserDefaultsTest, AreTheStandardOnes) {
    EXPECT_NE(dynamic_cast<mac::MacUserDefaults*>(&UserDefaults::standard()), nullptr);
}

} // namespace

} // namespace vanoka
