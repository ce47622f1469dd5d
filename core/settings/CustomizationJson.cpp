#include "settings/CustomizationJson.h"

#include "text/Utf8.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace vanoka::CustomizationJson {

namespace {

using Json = nlohmann::json;

// A stored name is for ever.
constexpr const char* addedKeysName = "addedKeys";
constexpr const char* disabledKeysName = "disabledKeys";
constexpr const char* keyName = "key";
constexpr const char* letterName = "letter";

/// Takes the fields out of a document as the parser comes past them. What belongs to no field is only
/// counted, so neither depth nor size of it matters.
class FieldReader {
public:
    /// What was read; nothing when a field was missing or of the wrong type.
    std::optional<SinglishCustomization> result() && {
        if (!added_ || !disabled_)
            return std::nullopt;
        return SinglishCustomization{std::move(*added_), std::move(*disabled_)};
    }

    // What the parser calls; true lets it go on.
    bool null() { return misplaced(); }
    bool boolean(bool) { return misplaced(); }
    bool number_integer(Json::number_integer_t) { return misplaced(); }
    bool number_unsigned(Json::number_unsigned_t) { return misplaced(); }
    bool number_float(Json::number_float_t, const std::string&) { return misplaced(); }
    bool binary(Json::binary_t&) { return misplaced(); } // out of reach: text has no such values
    bool parse_error(std::size_t, const std::string&, const Json::exception&) { return false; }

    bool key(std::string& name) {
        if (foreignDepth_ == 0)
            name_ = std::move(name);
        return true;
    }

    bool string(std::string& text) {
        if (foreignDepth_ > 0)
            return true;
        if (level_ == Level::addedKey && name_ == keyName)
            entry_.key = std::move(text);
        else if (level_ == Level::addedKey && name_ == letterName)
            entry_.letter = std::move(text);
        else if (level_ == Level::disabledKeys && disabled_)
            disabled_->insert(std::move(text));
        else
            return misplaced();
        return true;
    }

    bool start_object(std::size_t) {
        if (foreignDepth_ == 0 && level_ == Level::outside) {
            level_ = Level::document;
            return true;
        }
        if (foreignDepth_ == 0 && level_ == Level::addedKeys) {
            level_ = Level::addedKey;
            entry_ = {};
            return true;
        }
        return enterForeign();
    }

    bool start_array(std::size_t) {
        if (foreignDepth_ == 0 && level_ == Level::document && name_ == addedKeysName) {
            level_ = Level::addedKeys;
            added_.emplace();
            return true;
        }
        if (foreignDepth_ == 0 && level_ == Level::document && name_ == disabledKeysName) {
            level_ = Level::disabledKeys;
            disabled_.emplace();
            return true;
        }
        return enterForeign();
    }

    bool end_object() { return leave(); }
    bool end_array() { return leave(); }

private:
    enum class Level : std::uint8_t { outside, document, addedKeys, addedKey, disabledKeys };

    /// A record while it is read; a field that is missing or of the wrong type is absent.
    struct Entry {
        std::optional<std::string> key, letter;
    };

    bool enterForeign() {
        misplaced();
        ++foreignDepth_;
        return true;
    }

    /// The value that stands here is not one that belongs here. A list with such a value in it is as good as
    /// missing, unless its field comes once more; what else such a value holds changes nothing.
    bool misplaced() {
        if (level_ == Level::addedKey && name_ == keyName)
            entry_.key.reset();
        else if (level_ == Level::addedKey && name_ == letterName)
            entry_.letter.reset();
        else if (level_ == Level::addedKeys || (level_ == Level::document && name_ == addedKeysName))
            added_.reset();
        else if (level_ == Level::disabledKeys || (level_ == Level::document && name_ == disabledKeysName))
            disabled_.reset();
        return true;
    }

    bool leave() {
        if (foreignDepth_ > 0) {
            --foreignDepth_;
        } else if (level_ == Level::addedKey) {
            level_ = Level::addedKeys;
            addEntry();
        } else {
            level_ = level_ == Level::document ? Level::outside : Level::document;
        }
        return true;
    }

    void addEntry() {
        if (!entry_.key || !entry_.letter)
            added_.reset();
        if (added_)
            added_->push_back({std::move(*entry_.key), std::move(*entry_.letter)});
    }

    Level level_ = Level::outside;
    std::size_t foreignDepth_ = 0; // of containers that belong to no field
    std::string name_;             // of the field whose value comes next
    Entry entry_;
    std::optional<decltype(SinglishCustomization::addedKeys)> added_;
    std::optional<decltype(SinglishCustomization::disabledKeys)> disabled_;
};

/// The parser takes a byte order mark and a NUL in its stride; JSON text holds neither.
bool hasBytesThatJsonLacks(std::string_view document) {
    return document.starts_with("\uFEFF") || document.find('\0') != std::string_view::npos;
}

/// The document with no more than two digits of every number, for the parser refuses numbers beyond the range
/// of a double, which JSON allows. No field is a number, so their values do not count; digits that JSON does
/// not allow stay such.
std::string withShortNumbers(std::string_view document) {
    std::string result;
    result.reserve(document.size());
    bool isInString = false, isEscaped = false;
    std::size_t digits = 0;
    for (const char byte : document) {
        digits = !isInString && byte >= '0' && byte <= '9' ? digits + 1 : 0;
        if (digits <= 2)
            result += byte;
        if (byte == '"' && !isEscaped)
            isInString = !isInString;
        isEscaped = isInString && byte == '\\' && !isEscaped;
    }
    return result;
}

bool everyTextIsWellFormed(const SinglishCustomization& customization) {
    return std::ranges::all_of(customization.disabledKeys, text::isWellFormed) &&
           std::ranges::all_of(customization.addedKeys, [](const auto& added) {
               return text::isWellFormed(added.key) && text::isWellFormed(added.letter);
           });
}

} // namespace

std::optional<std::string> encode(const SinglishCustomization& customization) {
    if (!everyTextIsWellFormed(customization))
        return std::nullopt;
    Json added = Json::array();
    for (const auto& entry : customization.addedKeys)
        added.push_back({{keyName, entry.key}, {letterName, entry.letter}});
    const Json document = {{addedKeysName, std::move(added)},
                           {disabledKeysName, Json(customization.disabledKeys)}};
    return document.dump();
}

std::optional<SinglishCustomization> decode(std::string_view document) {
    FieldReader reader;
    if (hasBytesThatJsonLacks(document) || !Json::sax_parse(withShortNumbers(document), &reader))
        return std::nullopt;
    return std::move(reader).result();
}

} // namespace vanoka::CustomizationJson
