#pragma once

#include "SuggestionLists.h"

namespace vanoka::bench {

/// The lists that ship, as files.
const SuggestionListTexts& shippedTexts();

} // namespace vanoka::bench
