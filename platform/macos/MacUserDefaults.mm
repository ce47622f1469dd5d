#import "MacUserDefaults.h"

#import "Strings.h"

namespace vanoka {

namespace mac {

std::optional<std::string> MacUserDefaults::data(std::string_view name) {
    NSData* value = [[NSUserDefaults standardUserDefaults] dataForKey:string(name)];
    if (!value)
        return std::nullopt;
    return std::string(static_cast<const char*>([value bytes]), [value length]);
}

void MacUserDefaults::setData(std::string_view name, const std::optional<std::string>& value) {
    NSUserDefaults* defaults = [NSUserDefaults standardUserDefaults];
    if (value)
        [defaults setObject:[NSData dataWithBytes:value->data() length:value->size()] forKey:string(name)];
    else
        [defaults removeObjectForKey:string(name)];
}

} // namespace mac

UserDefaults& UserDefaults::standard() {
    static mac::MacUserDefaults defaults;
    return defaults;
}

} // namespace vanoka
