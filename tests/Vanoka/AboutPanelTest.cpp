#include "AboutPanel.h"

#include "FakeToolkit.h"
#include "product/VanokaProduct.h"
#include "product/VanokaWebsite.h"
#include "text/Utf8.h"

#include <gtest/gtest.h>

namespace vanoka {

namespace {

constexpr TextAttributes base = {
    .font = {.role = FontRole::smallSystem},
    .colour = ColourRole::secondary,
    .paragraph = {.alignment = ParagraphStyle::Alignment::centred, .spacing = 4},
};

AttributedPiece link(std::string text, const Url& url) {
    TextAttributes attributes = base;
    attributes.link = url.text();
    return {std::move(text), attributes};
}

TEST(AboutPanel, TheTaglineKeepsItsCodePoints) {
    const std::u32string expected = U"\U00000D89\U00000D82\U00000D9C\U00000DCA\U0000200D\U00000DBB\U00000DD3"
                                    U"\U00000DC3\U00000DD2 "
                                    U"\U00000D85\U00000D9A\U00000DD4\U00000DBB\U00000DD9\U00000DB1\U00000DCA "
                                    U"\U00000DC3\U00000DD2\U00000D82\U00000DC4\U00000DBD "
                                    U"\U00000DBD\U00000DD2\U00000DBA\U00000DB1\U00000DCA\U00000DB1";
    const std::string line = AboutPanel::credits().front().text;
    EXPECT_EQ(line.size(), 85U);
    ASSERT_TRUE(line.ends_with('\n'));
    std::u32string read;
    for (const text::Scalar& scalar : text::Scalars(std::string_view(line).substr(0, line.size() - 1)))
        read += scalar.value;
    EXPECT_EQ(read, expected);
    EXPECT_EQ(AboutPanel::tagline.size(), 84U);
}

TEST(AboutPanel, TheCreditsAreSixPieces) {
    EXPECT_EQ(AboutPanel::credits(),
              (AttributedText{
                  {std::string(AboutPanel::tagline) + "\n", base},
                  link(std::string(VanokaWebsite::home().host()), VanokaWebsite::home()),
                  {"  \u00B7  ", base},
                  link("Privacy policy", VanokaWebsite::privacyPolicy()),
                  {"  \u00B7  ", base},
                  link("Terms", VanokaWebsite::terms()),
              }));
}

TEST(AboutPanel, BearsBothNames) {
    EXPECT_EQ(AboutPanel::applicationName(), "Vanoka \u00B7 " + std::string(VanokaProduct::sinhalaName()));
}

TEST(AboutPanel, OpensInFront) {
    test::FakeToolkit toolkit;
    AboutPanel::show(toolkit);
    EXPECT_EQ(toolkit.log, (std::vector<std::string>{"activate", "about " + AboutPanel::applicationName()}));
    EXPECT_EQ(toolkit.credits, AboutPanel::credits());
}

} // namespace

} // namespace vanoka
