#include "settings/SinglishSettings.h"

#include "settings/CustomizationJson.h"
#include "text/Characters.h"
#include "text/Equivalence.h"
#include "text/Hasher.h"
#include "text/Utf8.h"

#include <algorithm>
#include <utility>

namespace vanoka {

namespace {

using KeyProblem = SinglishSettings::KeyProblem;

std::optional<KeyProblem> problemOfSpelling(std::string_view key) {
    if (key.empty())
        return KeyProblem::empty;
    if (!std::ranges::all_of(key, text::isAsciiLetter))
        return KeyProblem::notLetters;
    if (text::characterCount(key) > static_cast<std::size_t>(SinglishSettings::maxKeyLength))
        return KeyProblem::tooLong;
    return std::nullopt;
}

bool isBuiltInKeyOf(const SinglishScheme::Letter* letter, std::string_view key) {
    return letter && std::ranges::find(letter->keys, key) != letter->keys.end();
}

void eraseAdded(SinglishCustomization& customization, std::string_view key) {
    std::erase_if(customization.addedKeys, [key](const auto& added) { return text::equal(added.key, key); });
}

void eraseDisabled(SinglishCustomization& customization, std::string_view key) {
    if (const auto found = customization.disabledKeys.find(key); found != customization.disabledKeys.end())
        customization.disabledKeys.erase(found);
}

} // namespace

bool operator==(const SinglishKeyState& left, const SinglishKeyState& right) {
    return text::equal(left.key, right.key) && left.kind == right.kind && left.isOn == right.isOn &&
           left.takenBy.has_value() == right.takenBy.has_value() &&
           text::equal(left.takenBy.value_or(""), right.takenBy.value_or(""));
}

bool operator==(const SinglishSettings::LongPressLetter& left,
                const SinglishSettings::LongPressLetter& right) {
    return left.letter == right.letter && text::equal(left.key, right.key);
}

std::string message(KeyProblem problem) {
    switch (problem) {
    case KeyProblem::empty:
        return "Type a key";
    case KeyProblem::notLetters:
        return "Use English letters only";
    case KeyProblem::tooLong:
        return "Use at most " + std::to_string(SinglishSettings::maxKeyLength) + " letters";
    case KeyProblem::alreadyThisLetter:
        break;
    }
    return "This letter already has that key";
}

SinglishSettings::SinglishSettings(UserDefaults& defaults)
    : defaults_(defaults),
      savedData_(defaults.data(storedName)),
      customization_(decodeSaved()),
      transliterator_(customization_) {}

Subscription SinglishSettings::observeWillChange(std::function<void()> observer) {
    return willChange_.subscribe(std::move(observer));
}

Subscription
SinglishSettings::observeCustomization(std::function<void(const SinglishCustomization&)> observer) {
    observer(customization_);
    return values_.subscribe(std::move(observer));
}

UserDefaults::Lock SinglishSettings::beginEdit() {
    auto lock = defaults_.lock(storedName);
    reloadIfChanged();
    return lock;
}

void SinglishSettings::reloadIfChanged() {
    auto stored = defaults_.data(storedName);
    if (stored == savedData_)
        return;
    savedData_ = std::move(stored);
    apply(decodeSaved(), Save::no);
}

std::vector<SinglishKeyState> SinglishSettings::keysFor(const SinglishScheme::Letter& letter) const {
    std::vector<SinglishKeyState> states;
    for (const std::string_view key : letter.keys) {
        SinglishKeyState state{.key = std::string(key), .isOn = !customization_.disabledKeys.contains(key)};
        const auto typed = state.isOn ? transliterator_.letterTypedBy(key) : std::nullopt;
        if (typed && !text::equal(*typed, letter.id))
            state.takenBy = *typed;
        states.push_back(std::move(state));
    }
    for (const auto& added : customization_.addedKeys)
        if (text::equal(added.letter, letter.id))
            states.push_back({.key = added.key, .kind = SinglishKeyState::Kind::added});
    return states;
}

std::vector<std::string> SinglishSettings::activeKeysFor(const SinglishScheme::Letter& letter) const {
    std::vector<std::string> keys;
    for (SinglishKeyState& state : keysFor(letter))
        if (state.isActive())
            keys.push_back(std::move(state.key));
    return keys;
}

bool SinglishSettings::isCustomized(const SinglishScheme::Letter& letter) const {
    return std::ranges::any_of(keysFor(letter), [](const SinglishKeyState& state) {
        return state.kind == SinglishKeyState::Kind::added || !state.isActive();
    });
}

SinglishSettings::KeyCheck SinglishSettings::check(std::string_view key, std::string_view letter) const {
    if (const auto problem = problemOfSpelling(key))
        return {problem, std::nullopt};
    const auto typed = transliterator_.letterTypedBy(key);
    if (typed && text::equal(*typed, letter))
        return {KeyProblem::alreadyThisLetter, std::nullopt};
    return {std::nullopt, typed};
}

std::optional<KeyProblem> SinglishSettings::add(std::string_view key, std::string_view letter) {
    if (const auto problem = check(key, letter).problem)
        return problem;
    SinglishCustomization changed = customization_;
    eraseAdded(changed, key);
    if (isBuiltInKeyOf(SinglishScheme::letter(letter), key))
        eraseDisabled(changed, key);
    else
        changed.addedKeys.push_back({std::string(key), std::string(letter)});
    apply(std::move(changed), Save::yes);
    return std::nullopt;
}

void SinglishSettings::remove(std::string_view key) {
    SinglishCustomization changed = customization_;
    eraseAdded(changed, key);
    apply(std::move(changed), Save::yes);
}

void SinglishSettings::setBuiltIn(std::string_view key, bool on) {
    SinglishCustomization changed = customization_;
    if (on)
        eraseDisabled(changed, key);
    else
        changed.disabledKeys.emplace(key);
    apply(std::move(changed), Save::yes);
}

void SinglishSettings::reset() {
    apply({}, Save::yes);
}

void SinglishSettings::replace(SinglishCustomization customization) {
    apply(std::move(customization), Save::yes);
}

SinglishCustomization SinglishSettings::decodeSaved() {
    auto decoded = savedData_ ? CustomizationJson::decode(*savedData_) : SinglishCustomization();
    isStoredDamaged_ = !decoded;
    return std::move(decoded).value_or(SinglishCustomization());
}

/// The only writer of the customization.
void SinglishSettings::apply(SinglishCustomization customization, Save save) {
    transliterator_ = SinglishTransliterator(customization);
    willChange_.announce();
    values_.announce(customization);
    customization_ = std::move(customization);
    if (save == Save::yes)
        store();
}

void SinglishSettings::store() {
    auto document = customization_.isEmpty() ? std::nullopt : CustomizationJson::encode(customization_);
    if (std::exchange(isStoredDamaged_, false))
        defaults_.setAside(storedName);
    defaults_.setData(storedName, document);
    savedData_ = std::move(document);
}

} // namespace vanoka

std::size_t std::hash<vanoka::SinglishKeyState>::operator()(const vanoka::SinglishKeyState& state) const {
    vanoka::Hasher hasher;
    hasher.feed(state.key);
    hasher.feed(static_cast<std::size_t>(state.kind));
    hasher.feed(static_cast<std::size_t>(state.isOn));
    if (state.takenBy)
        hasher.feed(*state.takenBy);
    return hasher.value();
}
