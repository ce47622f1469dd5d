#pragma once

#include "words/SinhalaWordList.h"
#include "words/TypedWords.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace vanoka {

/// What was learnt from one person's writing, as it was at one moment. It never changes.
struct PersonalWords {
    /// How an English word was meant, in times.
    struct EnglishUse {
        std::int64_t kept = 0;           ///< it stayed in Latin letters
        std::int64_t typedInSinhala = 0; ///< its keys were put in as Sinhala
        friend bool operator==(const EnglishUse&, const EnglishUse&) = default;
    };

    SinhalaWordList sinhala;                                ///< how often each word was put in
    std::map<std::string, EnglishUse, std::less<>> english; ///< by the word in lower case
    std::set<std::string, std::less<>> forgotten; ///< never learnt again, and in neither of the others
    /// How the Sinhala words are read; without it they are found by their spelling alone.
    std::optional<TypedWords> reading = std::nullopt;
};

/// The same words with the reading of the Sinhala ones. It takes some hundred nanoseconds a word.
inline PersonalWords withReading(PersonalWords words) {
    words.reading.emplace(words.sinhala);
    return words;
}

/// A word that was put in, and the keys that it was typed with.
struct CommittedWord {
    std::string keys; ///< as typed, in Latin letters
    std::string text; ///< as it went into the client's text, without what ended it
    friend bool operator==(const CommittedWord&, const CommittedWord&) = default;
};

/// Where what was learnt is kept. Several programs may learn into one store.
///
/// No call waits for a disk or for another program: what is told is written later, in order. Calls come from
/// one thread.
class PersonalWordStore {
public:
    virtual ~PersonalWordStore() = default;

    /// The newest snapshot. It may be a moment older than what was told. Never null; constant time.
    virtual std::shared_ptr<const PersonalWords> words() const = 0;

    /// Counts the word once: a Sinhala text of two letters or more, and the keys as an English word, kept or
    /// typed in Sinhala. What is neither, and what is forgotten, is not learnt.
    virtual void learn(const CommittedWord& word) = 0;
    /// Takes back what `learn` counted of the same word.
    virtual void unlearn(const CommittedWord& word) = 0;
    /// Never offers the word from learning again, however often it is put in.
    virtual void forget(std::string_view word) = 0;

protected:
    PersonalWordStore() = default;
    PersonalWordStore(const PersonalWordStore&) = default;
    PersonalWordStore& operator=(const PersonalWordStore&) = default;
};

} // namespace vanoka
