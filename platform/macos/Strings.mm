#import "Strings.h"

#import "Memory.h"

namespace vanoka::mac {

NSString* string(std::string_view text) {
    NSString* made = [[NSString alloc] initWithBytes:text.data()
                                              length:text.size()
                                            encoding:NSUTF8StringEncoding];
    return made ? autoreleased(made) : @"";
}

std::optional<std::string> utf8(NSString* string) {
    NSData* bytes = [string dataUsingEncoding:NSUTF8StringEncoding allowLossyConversion:NO];
    if (!bytes)
        return std::nullopt;
    return std::string(static_cast<const char*>([bytes bytes]), [bytes length]);
}

} // namespace vanoka::mac
