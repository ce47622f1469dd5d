#pragma once

#include "singlish/SinglishReader.h"

#include <array>
#include <map>
#include <string>
#include <utility>

/// What every ASCII byte does in every state that keys held back can come to, each asked of the reader. The
/// judge of the transducer, which works the same out without reading anything.
namespace vanoka::test::plain {

/// The keys held back, and the consonant left open before them.
using State = std::pair<std::string, OpenConsonant>;

struct Step {
    std::string text; // what is written
    State next;
};

using Transducer = std::map<State, std::array<Step, 128>>;

/// Every state that some ASCII text comes to; what the byte 0 writes, a state comes to at the end of a text,
/// but for that byte itself.
Transducer transducer(const SinglishReader& reader);

} // namespace vanoka::test::plain
