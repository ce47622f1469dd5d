#pragma once

#include "singlish/SinglishTransliterator.h"

#include <string>
#include <string_view>

/// The rules of transliteration and of the backspace, written down in the plainest way, with a look-up for
/// every candidate and no thought of speed. The judge of the library's own.
namespace vanoka::test::plain {

std::string transliterate(const SinglishTransliterator& keys, std::string_view text);

/// What one backspace leaves of `raw`, which is not empty.
std::string deleteBackward(const SinglishTransliterator& keys, const std::string& raw);

} // namespace vanoka::test::plain
