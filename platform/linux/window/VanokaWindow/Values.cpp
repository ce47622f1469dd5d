#include "Values.h"

#include "Typography.h"

namespace vanoka {

namespace {

struct ControlReader {
    KeyControlValue& value;

    void operator()(const SymbolButton& button) const {
        value.kind = QStringLiteral("symbol");
        value.title = qtText(button.symbol);
        value.colour = nameOf(button.colour);
        value.help = qtText(button.help);
    }
    void operator()(const Switch& control) const {
        value.kind = QStringLiteral("switch");
        value.isOn = control.isOn;
        value.help = qtText(control.help);
    }
    void operator()(const Button& button) const {
        value.kind = QStringLiteral("button");
        value.title = qtText(button.title);
        value.help = qtText(button.help);
    }
};

} // namespace

QString qtText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString nameOf(ColourRole colour) {
    switch (colour) {
    case ColourRole::secondary:
        return QStringLiteral("secondary");
    case ColourRole::accent:
        return QStringLiteral("accent");
    case ColourRole::red:
        return QStringLiteral("red");
    case ColourRole::orange:
        return QStringLiteral("orange");
    case ColourRole::primary:
        break;
    }
    return QStringLiteral("primary");
}

TextValue::TextValue(const StyledText& content)
    : text(qtText(content.text)), font(fontOf(content.font)), colour(nameOf(content.colour)) {
    font.setStrikeOut(content.isStruckThrough);
}

TextValue::TextValue(const std::optional<StyledText>& content) {
    if (content)
        *this = TextValue(*content);
}

DotValue::DotValue(const std::optional<Dot>& content) {
    if (!content)
        return;
    diameter = content->diameter;
    colour = nameOf(content->colour);
    help = qtText(content->help);
}

KeyControlValue::KeyControlValue(const KeyRow& row) : spoken(qtText(row.spokenControl())) {
    std::visit(ControlReader{*this}, row.control());
}

LinkValue::LinkValue(const Link& content) : label(content.text), address(qtText(content.address)) {}

LinkValue::LinkValue(const AttributedPiece& content)
    : label(StyledText{content.text, content.attributes.font, content.attributes.colour}),
      address(qtText(content.attributes.link.value_or(""))) {}

} // namespace vanoka
