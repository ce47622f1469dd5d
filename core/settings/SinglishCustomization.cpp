#include "settings/SinglishCustomization.h"

#include "support/Hasher.h"
#include "text/Utf8.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace vanoka {

namespace {

using Json = nlohmann::json;

// A stored name is for ever.
constexpr const char* addedKeysName = "addedKeys";
constexpr const char* disabledKeysName = "disabledKeys";
constexpr const char* keyName = "key";
constexpr const char* letterName = "letter";

/// How deep the fields stand: the document, a list in it, a record in the list, a text in the record. What
/// is nested deeper belongs to no field and is checked but not kept.
constexpr int deepestField = 3;

/// The parser takes a byte order mark and a NUL in its stride; JSON text holds neither.
bool hasBytesThatJsonLacks(std::string_view document) {
    return document.starts_with("\uFEFF") || document.find('\0') != std::string_view::npos;
}

Json parse(std::string_view document) {
    if (hasBytesThatJsonLacks(document))
        return Json::value_t::discarded;
    const auto keep = [](int depth, Json::parse_event_t, const Json&) { return depth <= deepestField; };
    return Json::parse(document.begin(), document.end(), keep, false);
}

std::optional<std::string> textField(const Json& record, const char* name) {
    const auto field = record.find(name);
    if (field == record.end() || !field->is_string())
        return std::nullopt;
    return field->get_ref<const std::string&>();
}

const Json* listField(const Json& document, const char* name) {
    const auto field = document.find(name);
    return field != document.end() && field->is_array() ? &*field : nullptr;
}

std::optional<SinglishCustomization::AddedKey> addedKey(const Json& record) {
    if (!record.is_object())
        return std::nullopt;
    auto key = textField(record, keyName);
    auto letter = textField(record, letterName);
    if (!key || !letter)
        return std::nullopt;
    return SinglishCustomization::AddedKey{std::move(*key), std::move(*letter)};
}

bool everyTextIsWellFormed(const SinglishCustomization& customization) {
    return std::ranges::all_of(customization.disabledKeys, text::isWellFormed) &&
           std::ranges::all_of(customization.addedKeys, [](const auto& added) {
               return text::isWellFormed(added.key) && text::isWellFormed(added.letter);
           });
}

} // namespace

bool operator==(const SinglishCustomization::AddedKey& left, const SinglishCustomization::AddedKey& right) {
    return text::equal(left.key, right.key) && text::equal(left.letter, right.letter);
}

bool operator==(const SinglishCustomization& left, const SinglishCustomization& right) {
    return left.addedKeys == right.addedKeys &&
           std::ranges::equal(left.disabledKeys, right.disabledKeys, text::equal);
}

std::optional<std::string> SinglishCustomization::encode() const {
    if (!everyTextIsWellFormed(*this))
        return std::nullopt;
    Json added = Json::array();
    for (const AddedKey& entry : addedKeys)
        added.push_back({{keyName, entry.key}, {letterName, entry.letter}});
    const Json document = {{addedKeysName, std::move(added)}, {disabledKeysName, Json(disabledKeys)}};
    return document.dump();
}

std::optional<SinglishCustomization> SinglishCustomization::decode(std::string_view document) {
    const Json parsed = parse(document);
    if (!parsed.is_object())
        return std::nullopt;
    const Json* added = listField(parsed, addedKeysName);
    const Json* disabled = listField(parsed, disabledKeysName);
    if (!added || !disabled)
        return std::nullopt;
    SinglishCustomization customization;
    for (const Json& record : *added) {
        auto entry = addedKey(record);
        if (!entry)
            return std::nullopt;
        customization.addedKeys.push_back(std::move(*entry));
    }
    for (const Json& key : *disabled) {
        if (!key.is_string())
            return std::nullopt;
        customization.disabledKeys.insert(key.get_ref<const std::string&>());
    }
    return customization;
}

} // namespace vanoka

std::size_t std::hash<vanoka::SinglishCustomization::AddedKey>::operator()(
    const vanoka::SinglishCustomization::AddedKey& added) const {
    vanoka::Hasher hasher;
    hasher.feed(added.key);
    hasher.feed(added.letter);
    return hasher.value();
}
