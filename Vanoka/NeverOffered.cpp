#include "NeverOffered.h"

#include "script/SinhalaBlock.h"
#include "text/Equivalence.h"
#include "text/LetterCase.h"
#include "text/Rows.h"
#include "text/Utf8.h"

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

std::string_view withoutSpaceAtTheEnd(std::string_view line) {
    return line.substr(0, line.find_last_not_of(" \t\r") + 1);
}

} // namespace

NeverOffered::NeverOffered() : words_(std::make_shared<const Words>()) {}

NeverOffered::NeverOffered(std::string_view text)
    : words_([&] {
          auto words = std::make_shared<Words>();
          while (!text.empty()) {
              const std::string_view word = withoutSpaceAtTheEnd(text::takeLine(text));
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
