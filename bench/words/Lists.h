#pragma once

#include "words/SinhalaWordList.h"

#include <cstddef>
#include <string>
#include <vector>

namespace vanoka::bench {

/// A generated list of so many words as text, as it is loaded, and its words' own bytes. Made once.
struct GeneratedList {
    std::string tsv;
    SinhalaWordList list;
    std::size_t ownBytes = 0;
    std::vector<std::string> oneLetter; ///< every letter that begins a word
    std::vector<std::string> prefixes;  ///< every prefix of one to four letters, and what abbreviates it
};

const GeneratedList& generatedList(std::size_t size);

/// The walk that a plain list does: from the lower bound on, over every word that begins so, with the best
/// few kept by insertion. Without what it need not do here: personal lists, abbreviations and equivalence.
class PlainWalk {
public:
    explicit PlainWalk(const GeneratedList& list);
    std::vector<std::string> suggestionsFor(const std::string& text, std::size_t limit) const;

private:
    struct Entry {
        std::string key, word;
        std::int64_t count = 0;
    };
    std::vector<Entry> entries_;
};

} // namespace vanoka::bench
