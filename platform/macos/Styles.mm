#import "Styles.h"

#import "Memory.h"
#import "Strings.h"

namespace vanoka::mac {

namespace {

NSFont* textStyleFont(NSFontTextStyle style) {
    return [NSFont preferredFontForTextStyle:style options:@{}];
}

NSFont* roleFont(const Font& font) {
    switch (font.role) {
    case FontRole::body:
        return textStyleFont(NSFontTextStyleBody);
    case FontRole::title2:
        return textStyleFont(NSFontTextStyleTitle2);
    case FontRole::headline:
        return textStyleFont(NSFontTextStyleHeadline);
    case FontRole::subheadline:
        return textStyleFont(NSFontTextStyleSubheadline);
    case FontRole::callout:
        return textStyleFont(NSFontTextStyleCallout);
    case FontRole::footnote:
        return textStyleFont(NSFontTextStyleFootnote);
    case FontRole::caption:
        return textStyleFont(NSFontTextStyleCaption1);
    case FontRole::smallSystem:
        return [NSFont systemFontOfSize:[NSFont smallSystemFontSize]];
    case FontRole::system:
        return [NSFont systemFontOfSize:font.size];
    }
    return textStyleFont(NSFontTextStyleBody);
}

NSParagraphStyle* paragraphStyle(const ParagraphStyle& style) {
    NSMutableParagraphStyle* made = autoreleased([[NSMutableParagraphStyle alloc] init]);
    [made setAlignment:style.alignment == ParagraphStyle::Alignment::centred ? NSTextAlignmentCenter
                                                                             : NSTextAlignmentNatural];
    [made setParagraphSpacing:style.spacing];
    return made;
}

NSDictionary* attributes(const TextAttributes& asked) {
    NSMutableDictionary* made = [NSMutableDictionary dictionary];
    [made setObject:font(asked.font) forKey:NSFontAttributeName];
    [made setObject:colour(asked.colour) forKey:NSForegroundColorAttributeName];
    [made setObject:paragraphStyle(asked.paragraph) forKey:NSParagraphStyleAttributeName];
    if (asked.link)
        [made setObject:[NSURL URLWithString:string(*asked.link)] forKey:NSLinkAttributeName];
    return made;
}

} // namespace

NSFont* font(const Font& font) {
    NSFont* plain = roleFont(font);
    if (font.isMonospaced)
        return
            [NSFont monospacedSystemFontOfSize:[plain pointSize]
                                        weight:font.isSemibold ? NSFontWeightSemibold : NSFontWeightRegular];
    return font.isSemibold ? [NSFont systemFontOfSize:[plain pointSize] weight:NSFontWeightSemibold] : plain;
}

NSColor* colour(ColourRole role) {
    switch (role) {
    case ColourRole::primary:
        return [NSColor labelColor];
    case ColourRole::secondary:
        return [NSColor secondaryLabelColor];
    case ColourRole::accent:
        return [NSColor controlAccentColor];
    case ColourRole::red:
        return [NSColor systemRedColor];
    case ColourRole::orange:
        return [NSColor systemOrangeColor];
    }
    return [NSColor labelColor];
}

NSAttributedString* attributedString(const StyledText& text) {
    NSMutableDictionary* made = [NSMutableDictionary dictionary];
    [made setObject:font(text.font) forKey:NSFontAttributeName];
    [made setObject:colour(text.colour) forKey:NSForegroundColorAttributeName];
    if (text.isStruckThrough)
        [made setObject:[NSNumber numberWithInteger:NSUnderlineStyleSingle]
                 forKey:NSStrikethroughStyleAttributeName];
    return autoreleased([[NSAttributedString alloc] initWithString:string(text.text) attributes:made]);
}

NSAttributedString* attributedString(const AttributedText& text) {
    NSMutableAttributedString* made = autoreleased([[NSMutableAttributedString alloc] init]);
    for (const AttributedPiece& piece : text) {
        NSAttributedString* added = [[NSAttributedString alloc] initWithString:string(piece.text)
                                                                    attributes:attributes(piece.attributes)];
        [made appendAttributedString:autoreleased(added)];
    }
    return made;
}

} // namespace vanoka::mac
