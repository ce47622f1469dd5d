#include "product/VanokaCompany.h"
#include "product/VanokaProduct.h"
#include "product/VanokaWebsite.h"

#include <gtest/gtest.h>

namespace vanoka {

namespace {

TEST(Product, EveryAddressIsThere) {
    EXPECT_FALSE(VanokaCompany::name().empty());
    for (const Url* url : {&VanokaCompany::website(), &VanokaWebsite::home(), &VanokaWebsite::terms(),
                           &VanokaWebsite::privacyPolicy()}) {
        EXPECT_TRUE(url->text().starts_with("https://")) << url->text();
        EXPECT_FALSE(url->host().empty());
    }
    EXPECT_EQ(&VanokaWebsite::home(), &VanokaWebsite::home()) << "parsed once and kept";
}

TEST(Product, HasItsNames) {
    EXPECT_EQ(VanokaProduct::name, "Vanoka");
    EXPECT_FALSE(VanokaProduct::sinhalaName().empty());
}

TEST(Url, KnowsItsHost) {
    EXPECT_EQ(Url("https://vanoka.example").host(), "vanoka.example");
    EXPECT_EQ(Url("https://vanoka.example/terms").host(), "vanoka.example");
    EXPECT_EQ(Url("http://vanoka.example:8080/?q#f").host(), "vanoka.example");
    EXPECT_EQ(Url("a+0-9.z://x-09.example/~!").host(), "x-09.example");
    const Url copied = Url("https://a.example/b");
    EXPECT_EQ(copied.host(), "a.example");
    EXPECT_EQ(copied.text(), "https://a.example/b");
}

TEST(UrlDeathTest, ATextThatIsNoAddressStopsTheProcess) {
    for (const char* text :
         {"", "vanoka.example", "https://", "://x", "https:///x", "1https://x", "https://a b",
          "https://\u0D9A.example", "https://x/\"", "https//x", "https://x/a b", "https://x/\x7F",
          "https://x/\u0D9A", "a_b://x", "a;b://x", "a://x;y"})
        EXPECT_DEATH(Url{text}, "Not a web address") << text;
}

} // namespace

} // namespace vanoka
