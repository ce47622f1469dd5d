#import "ClientAdapter.h"

#import "Memory.h"
#import "Strings.h"

#import <AppKit/AppKit.h>

namespace vanoka::mac {

namespace {

static_assert(NSNotFound == TextRange::notFound);

NSRange range(TextRange asked) {
    return NSMakeRange(static_cast<NSUInteger>(asked.location), static_cast<NSUInteger>(asked.length));
}

NSAttributedString* attributedString(const MarkedText& marked) {
    NSDictionary* underline = @{
        NSUnderlineStyleAttributeName : [NSNumber numberWithInteger:static_cast<NSInteger>(marked.underline)]
    };
    return autoreleased([[NSAttributedString alloc] initWithString:string(marked.text) attributes:underline]);
}

/// By name first: a GNU runtime does not recognise a protocol that no class of the same file adopts.
Protocol* textInputProtocol() {
    Protocol* named = NSProtocolFromString(@"IMKTextInput");
    return named ? named : @protocol(IMKTextInput);
}

} // namespace

std::optional<ClientAdapter> ClientAdapter::of(id sender) {
    if (![sender conformsToProtocol:textInputProtocol()])
        return std::nullopt;
    return ClientAdapter(sender);
}

std::optional<std::string> ClientAdapter::bundleIdentifier() const {
    return utf8([client_ bundleIdentifier]);
}

void ClientAdapter::insertText(std::string_view text, TextRange replacementRange) {
    [client_ insertText:string(text) replacementRange:range(replacementRange)];
}

void ClientAdapter::setMarkedText(const MarkedText& text, TextRange selectionRange,
                                  TextRange replacementRange) {
    [client_ setMarkedText:attributedString(text)
            selectionRange:range(selectionRange)
          replacementRange:range(replacementRange)];
}

} // namespace vanoka::mac
