#include "Settings.h"

#include "Answer.h"
#include "Arguments.h"
#include "text/Equivalence.h"

#include <algorithm>
#include <optional>
#include <string>

using namespace vanoka;
using namespace vanoka::c;

namespace {

using Letter = SinglishScheme::Letter;
using KeyProblem = SinglishSettings::KeyProblem;

std::int32_t kindOf(SinglishScheme::Group group) {
    switch (group) {
    case SinglishScheme::Group::vowel:
        return VANOKA_VOWEL;
    case SinglishScheme::Group::consonant:
        return VANOKA_CONSONANT;
    case SinglishScheme::Group::sign:
        break;
    }
    return VANOKA_SIGN;
}

std::int32_t kindOf(KeyProblem problem) {
    switch (problem) {
    case KeyProblem::empty:
        return VANOKA_KEY_EMPTY;
    case KeyProblem::notLetters:
        return VANOKA_KEY_NOT_LETTERS;
    case KeyProblem::tooLong:
        return VANOKA_KEY_TOO_LONG;
    case KeyProblem::alreadyThisLetter:
        break;
    }
    return VANOKA_KEY_ALREADY_THERE;
}

void addLetter(Reply& reply, const Letter& letter, std::int64_t number) {
    reply.add(kindOf(letter.group), letter.id, number);
    reply.add(VANOKA_DISPLAY, letter.display());
}

void addCheck(Reply& reply, const SinglishSettings::KeyCheck& check) {
    if (check.problem)
        reply.add(kindOf(*check.problem), message(*check.problem));
    else if (check.replaces)
        reply.add(VANOKA_KEY_REPLACES, *check.replaces);
    else
        reply.add(VANOKA_KEY_FREE, "");
}

bool isBuiltIn(std::string_view key) {
    return std::ranges::any_of(SinglishScheme::letters(), [key](const Letter& letter) {
        return std::ranges::find(letter.keys, key) != letter.keys.end();
    });
}

bool isAdded(const SinglishSettings& keys, std::string_view key) {
    return std::ranges::any_of(keys.customization().addedKeys,
                               [key](const auto& added) { return text::equal(added.key, key); });
}

/// A key and a letter that it may type.
struct Pair {
    Text key, letter;
};

vanoka_status check(const vanoka_settings* settings, const Pair& pair, Reply& reply) {
    if (const auto problem = firstProblem(settings, pair.key, pair.letter); problem != VANOKA_OK)
        return problem;
    if (!SinglishScheme::letter(pair.letter.view()))
        return VANOKA_BAD_ARGUMENT;
    addCheck(reply, settings->shared->keys.check(pair.key.view(), pair.letter.view()));
    return VANOKA_OK;
}

} // namespace

void vanoka::c::addKey(Reply& reply, const SinglishKeyState& state) {
    const bool isAdded = state.kind == SinglishKeyState::Kind::added;
    reply.add(isAdded ? VANOKA_ADDED : VANOKA_BUILT_IN, state.key, state.isOn ? 1 : 0);
    if (state.takenBy)
        reply.add(VANOKA_TAKEN_BY, *state.takenBy);
}

vanoka_status vanoka_settings_create(vanoka_settings** settings) {
    return creating(
        settings, [] { return VANOKA_OK; },
        [] { return new vanoka_settings{std::make_shared<KeySettings>()}; });
}

void vanoka_settings_release(vanoka_settings* settings) {
    delete settings;
}

vanoka_status vanoka_settings_load(vanoka_settings* settings, const char* document, std::size_t size) {
    return guarded([&] {
        const Bytes bytes = {document, size};
        if (const auto problem = firstProblem(settings, bytes); problem != VANOKA_OK)
            return problem;
        KeySettings& shared = *settings->shared;
        shared.defaults.setData(SinglishSettings::storedName,
                                size > 0 ? std::optional<std::string>(bytes.view()) : std::nullopt);
        shared.keys.reloadIfChanged();
        return shared.keys.isStoredDamaged() ? vanoka_status{VANOKA_ILL_FORMED} : VANOKA_OK;
    });
}

vanoka_status vanoka_settings_document(const vanoka_settings* settings, vanoka_answer* answer) {
    return answering(answer, [&](Reply& reply) {
        if (const auto problem = firstProblem(settings); problem != VANOKA_OK)
            return problem;
        reply.add(VANOKA_TEXT, settings->shared->defaults.data(SinglishSettings::storedName).value_or(""));
        return vanoka_status{VANOKA_OK};
    });
}

vanoka_status vanoka_settings_letters(const vanoka_settings* settings, vanoka_answer* answer) {
    return answering(answer, [&](Reply& reply) {
        if (const auto problem = firstProblem(settings); problem != VANOKA_OK)
            return problem;
        for (const Letter& letter : SinglishScheme::letters())
            addLetter(reply, letter, settings->shared->keys.isCustomized(letter) ? 1 : 0);
        return vanoka_status{VANOKA_OK};
    });
}

vanoka_status vanoka_settings_keys(const vanoka_settings* settings, const char* letter, std::size_t size,
                                   vanoka_answer* answer) {
    return answering(answer, [&](Reply& reply) {
        const Text id(letter, size);
        if (const auto problem = firstProblem(settings, id); problem != VANOKA_OK)
            return problem;
        const Letter* found = SinglishScheme::letter(id.view());
        if (!found)
            return vanoka_status{VANOKA_BAD_ARGUMENT};
        for (const SinglishKeyState& state : settings->shared->keys.keysFor(*found))
            addKey(reply, state);
        return vanoka_status{VANOKA_OK};
    });
}

vanoka_status vanoka_settings_check(const vanoka_settings* settings, const char* key, std::size_t key_size,
                                    const char* letter, std::size_t letter_size, vanoka_answer* answer) {
    return answering(answer, [&](Reply& reply) {
        return check(settings, {{key, key_size}, {letter, letter_size}}, reply);
    });
}

vanoka_status vanoka_settings_add(vanoka_settings* settings, const char* key, std::size_t key_size,
                                  const char* letter, std::size_t letter_size, vanoka_answer* answer) {
    return answering(answer, [&](Reply& reply) {
        const Pair pair = {{key, key_size}, {letter, letter_size}};
        if (const auto problem = check(settings, pair, reply); problem != VANOKA_OK)
            return problem;
        settings->shared->keys.add(pair.key.view(), pair.letter.view());
        return vanoka_status{VANOKA_OK};
    });
}

vanoka_status vanoka_settings_remove(vanoka_settings* settings, const char* key, std::size_t size) {
    return guarded([&] {
        const Text text(key, size);
        if (const auto problem = firstProblem(settings, text); problem != VANOKA_OK)
            return problem;
        if (isAdded(settings->shared->keys, text.view()))
            settings->shared->keys.remove(text.view());
        return vanoka_status{VANOKA_OK};
    });
}

vanoka_status vanoka_settings_set_built_in(vanoka_settings* settings, const char* key, std::size_t size,
                                           std::int32_t on) {
    return guarded([&] {
        const Text text(key, size);
        if (const auto problem = firstProblem(settings, text); problem != VANOKA_OK)
            return problem;
        if (!isBuiltIn(text.view()))
            return vanoka_status{VANOKA_BAD_ARGUMENT};
        settings->shared->keys.setBuiltIn(text.view(), on != 0);
        return vanoka_status{VANOKA_OK};
    });
}

vanoka_status vanoka_settings_reset(vanoka_settings* settings) {
    return guarded([&] {
        if (const auto problem = firstProblem(settings); problem != VANOKA_OK)
            return problem;
        settings->shared->keys.reset();
        return vanoka_status{VANOKA_OK};
    });
}

vanoka_status vanoka_settings_long_press(const vanoka_settings* settings, const char* key, std::size_t size,
                                         vanoka_answer* answer) {
    return answering(answer, [&](Reply& reply) {
        const Text text(key, size);
        if (const auto problem = firstProblem(settings, text); problem != VANOKA_OK)
            return problem;
        for (const auto& offered : settings->shared->keys.longPressLettersFor(text.view())) {
            addLetter(reply, offered.letter, 0);
            reply.add(VANOKA_KEYS, offered.key);
        }
        return vanoka_status{VANOKA_OK};
    });
}

vanoka_status vanoka_settings_transliterate(const vanoka_settings* settings, const char* text,
                                            std::size_t size, vanoka_answer* answer) {
    return answering(answer, [&](Reply& reply) {
        const Bytes bytes = {text, size};
        if (const auto problem = firstProblem(settings, bytes); problem != VANOKA_OK)
            return problem;
        reply.add(VANOKA_TEXT, settings->shared->keys.transliterator().transliterate(bytes.view()));
        return vanoka_status{VANOKA_OK};
    });
}
