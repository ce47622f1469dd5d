#pragma once

#include "settings/UserDefaults.h"
#include "singlish/SinglishCustomization.h"
#include "singlish/SinglishScheme.h"
#include "singlish/SinglishTransliterator.h"
#include "support/Announcer.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vanoka {

/// One key of one letter, as a list of the letter's keys shows it.
struct SinglishKeyState {
    enum class Kind : std::uint8_t { builtIn, added };

    std::string key;
    Kind kind = Kind::builtIn;
    bool isOn = true;                   ///< an added key is always on
    std::optional<std::string> takenBy; ///< the letter that a built-in key types instead at present

    const std::string& id() const noexcept { return key; }
    bool isActive() const noexcept { return isOn && !takenBy; }
    friend bool operator==(const SinglishKeyState& left, const SinglishKeyState& right);
};

/// The keys in force: the user's customization, the transliterator built from it, and the place where it is
/// stored. Every edit is checked, takes effect at once, is announced and is stored.
///
/// An edit replaces what is stored. Where other programs edit, too, it begins by `beginEdit`:
///     const auto edit = settings.beginEdit();
///     settings.add(key, letter);
///
/// Not for several threads at once. Views of texts that it hands out are views into the scheme's tables.
class SinglishSettings {
public:
    /// The longest key that a user may add, in characters.
    static constexpr std::int64_t maxKeyLength = 6;
    /// The name under which the customization is stored.
    static constexpr std::string_view storedName = "vanoka.customization.v1";

    /// Why a key cannot be added.
    enum class KeyProblem : std::uint8_t { empty, notLetters, tooLong, alreadyThisLetter };

    struct KeyCheck {
        std::optional<KeyProblem> problem;
        std::optional<std::string_view> replaces; ///< the id of the letter that the key types at present
        friend bool operator==(const KeyCheck&, const KeyCheck&) = default;
    };

    /// A letter offered while a key is held down, with a key that types it.
    struct LongPressLetter {
        SinglishScheme::Letter letter;
        std::string key;
        friend bool operator==(const LongPressLetter& left, const LongPressLetter& right);
    };

    /// The settings of the user who runs this process, over `UserDefaults::standard()`. Created on first use.
    static SinglishSettings& shared();

    /// Settings over `defaults`, which must outlive them. What is stored there and does not decode counts as
    /// no customization; it is left as it is until the next edit.
    explicit SinglishSettings(UserDefaults& defaults);
    SinglishSettings(const SinglishSettings&) = delete;
    SinglishSettings& operator=(const SinglishSettings&) = delete;

    const SinglishCustomization& customization() const noexcept { return customization_; }
    const SinglishTransliterator& transliterator() const noexcept { return transliterator_; }

    /// Calls `observer` whenever the customization is about to change: it still sees the old customization,
    /// and already the transliterator of the new one. An observer must not edit the settings.
    [[nodiscard]] Subscription observeWillChange(std::function<void()> observer);

    /// Calls `observer` with the present customization, and then with every new one just before it is in
    /// force.
    [[nodiscard]] Subscription
    observeCustomization(std::function<void(const SinglishCustomization&)> observer);

    /// Waits until no other program edits the keys, adopts what it has stored, and keeps all others from
    /// editing until the result is gone.
    [[nodiscard]] UserDefaults::Lock beginEdit();

    /// Adopts the stored customization if something else has changed it since this object last read or wrote
    /// it. Stores nothing.
    void reloadIfChanged();

    /// The letter's built-in keys in the scheme's order, then the user's in the order of their adding.
    std::vector<SinglishKeyState> keysFor(const SinglishScheme::Letter& letter) const;
    /// The keys that type the letter at present.
    std::vector<std::string> activeKeysFor(const SinglishScheme::Letter& letter) const;
    bool isCustomized(const SinglishScheme::Letter& letter) const;

    /// What adding `key` to the letter with this id would meet.
    KeyCheck check(std::string_view key, std::string_view letter) const;

    /// Gives `key` to the letter with this id, taking it from any other. Returns the problem, and changes
    /// nothing, when `check` finds one.
    std::optional<KeyProblem> add(std::string_view key, std::string_view letter);

    /// Removes an added key.
    void remove(std::string_view key);
    /// Switches a built-in key on or off.
    void setBuiltIn(std::string_view key, bool on);
    /// Drops every customization.
    void reset();
    /// Replaces every customization by this one, unchecked.
    void replace(SinglishCustomization customization);

    /// How the customization is stored.
    UserDefaults::Condition condition() const { return defaults_.condition(storedName); }
    /// True when what is stored does not decode. The next edit sets it aside.
    bool isStoredDamaged() const noexcept { return isStoredDamaged_; }

    /// The letters that `key` may stand for while it is held down, likeliest first, each once and only if a
    /// key types it at present.
    std::vector<LongPressLetter> longPressLettersFor(std::string_view key) const;

private:
    enum class Save : bool { no, yes };

    SinglishCustomization decodeSaved();
    void apply(SinglishCustomization customization, Save save);
    void store();

    UserDefaults& defaults_;
    std::optional<std::string> savedData_; ///< the stored bytes as last read or written
    bool isStoredDamaged_ = false;
    SinglishCustomization customization_;
    SinglishTransliterator transliterator_;
    Announcer<> willChange_;
    Announcer<SinglishCustomization> values_;
};

/// What a person is told about the problem.
std::string message(SinglishSettings::KeyProblem problem);

} // namespace vanoka

template <>
struct std::hash<vanoka::SinglishKeyState> {
    std::size_t operator()(const vanoka::SinglishKeyState& state) const;
};
