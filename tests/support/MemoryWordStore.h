#pragma once

#include "PersonalWords.h"
#include "text/LetterCase.h"
#include "text/Sinhala.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vanoka::test {

/// What was learnt, in memory alone and at once.
class MemoryWordStore final : public PersonalWordStore {
public:
    std::shared_ptr<const PersonalWords> words() const override { return words_; }
    void learn(const CommittedWord& word) override { count(word, 1); }
    void unlearn(const CommittedWord& word) override { count(word, -1); }
    void forget(std::string_view word) override {
        counts_.erase(std::string(word));
        english_.erase(text::lowercased(word));
        forgotten_.emplace(word);
        renew();
    }

    /// How often the word was put in.
    std::int64_t countOf(const std::string& word) const {
        const auto found = counts_.find(word);
        return found == counts_.end() ? 0 : found->second;
    }
    PersonalWords::EnglishUse useOf(const std::string& word) const {
        const auto found = english_.find(word);
        return found == english_.end() ? PersonalWords::EnglishUse{} : found->second;
    }

private:
    void count(const CommittedWord& word, std::int64_t times) {
        if (text::holdsSinhala(word.text) && !forgotten_.contains(word.text) &&
            (counts_[word.text] += times) <= 0)
            counts_.erase(word.text);
        PersonalWords::EnglishUse& use = english_[text::lowercased(word.keys)];
        (word.text == word.keys ? use.kept : use.typedInSinhala) += times;
        renew();
    }
    void renew() {
        std::vector<WordCount> counts;
        for (const auto& [word, count] : counts_)
            counts.push_back({word, count});
        words_ = std::make_shared<PersonalWords>(
            withReading(PersonalWords{SinhalaWordList(counts), english_, forgotten_}));
    }

    std::map<std::string, std::int64_t> counts_;
    std::map<std::string, PersonalWords::EnglishUse, std::less<>> english_;
    std::set<std::string, std::less<>> forgotten_;
    std::shared_ptr<const PersonalWords> words_ = std::make_shared<PersonalWords>();
};

} // namespace vanoka::test
