#include "NeverOffered.h"

#include "script/SinhalaBlock.h"
#include "text/Equivalence.h"
#include "text/LetterCase.h"
#include "text/Utf8.h"

#include <algorithm>
#include <memory>

namespace vanoka {

namespace {

/// What is compared.
std::string keyOf(std::string_view word) {
    const std::string lower = text::nfc(text::lowercased(word));
    std::string key;
    for (const text::Scalar& scalar : text::Scalars(lower))
        if (!script::isJoiner(scalar.value))
            key += text::utf8(scalar.value);
    return key;
}

/// The first line of `rest` without space at its end; takes it off.
std::string_view takeWord(std::string_view& rest) {
    const std::string_view line = rest.substr(0, rest.find('\n'));
    rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    return line.substr(0, line.find_last_not_of(" \t\r") + 1);
}

} // namespace

NeverOffered::NeverOffered() : words_(std::make_shared<const Words>()) {}

NeverOffered::NeverOffered(std::string_view text)
    : words_([&] {
          auto words = std::make_shared<Words>();
          while (!text.empty()) {
              const std::string_view word = takeWord(text);
              if (!word.empty() && !word.starts_with('#') && text::isWellFormed(word))
                  words->insert(keyOf(word));
          }
          return words;
      }()) {}

bool NeverOffered::holds(std::string_view word) const {
    return !words_->empty() && words_->contains(keyOf(word));
}

std::size_t NeverOffered::size() const noexcept {
    return words_->size();
}

} // namespace vanoka
