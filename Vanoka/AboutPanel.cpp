#include "AboutPanel.h"

#include "product/VanokaProduct.h"
#include "product/VanokaWebsite.h"

#include <utility>

namespace vanoka::AboutPanel {

namespace {

constexpr const char* middleDot = "  \u00B7  ";
constexpr TextAttributes base = {
    .font = {FontRole::smallSystem},
    .colour = ColourRole::secondary,
    .paragraph = {ParagraphStyle::Alignment::centred, 4},
};

AttributedPiece link(std::string text, const Url& url) {
    AttributedPiece piece = {std::move(text), base};
    piece.attributes.link = url.text();
    return piece;
}

} // namespace

// In escapes, so that no editor loses the joiner.
constexpr std::string_view tagline = "\u0D89\u0D82\u0D9C\u0DCA\u200D\u0DBB\u0DD3\u0DC3\u0DD2 "
                                     "\u0D85\u0D9A\u0DD4\u0DBB\u0DD9\u0DB1\u0DCA "
                                     "\u0DC3\u0DD2\u0D82\u0DC4\u0DBD "
                                     "\u0DBD\u0DD2\u0DBA\u0DB1\u0DCA\u0DB1";
static_assert(tagline.size() == 84);

std::string applicationName() {
    return std::string(VanokaProduct::name) + " \u00B7 " + std::string(VanokaProduct::sinhalaName());
}

AttributedText credits() {
    return {
        {std::string(tagline) + "\n", base},
        link(std::string(VanokaWebsite::home().host()), VanokaWebsite::home()),
        {middleDot, base},
        link("Privacy policy", VanokaWebsite::privacyPolicy()),
        {middleDot, base},
        link("Terms", VanokaWebsite::terms()),
    };
}

void show(WindowToolkit& toolkit) {
    toolkit.activateApplication();
    toolkit.openAboutPanel(applicationName(), credits());
}

} // namespace vanoka::AboutPanel
