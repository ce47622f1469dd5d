#pragma once

#include "support/Shared.h"

#include <set>
#include <string>
#include <string_view>

namespace vanoka {

/// Words that are typed like any other and never suggested. A word is the same in any letter case, in any
/// canonical form and with or without joiners.
///
/// An immutable value, cheap to copy, safe to share between threads. One that was moved from keeps its words.
class NeverOffered {
public:
    /// No word.
    NeverOffered();

    /// Reads one word from every line of `text`. Empty lines, comments that begin with "#" and lines that are
    /// not well-formed UTF-8 are passed over; spaces, tabs and a carriage return at the end do not count.
    explicit NeverOffered(std::string_view text);

    bool holds(std::string_view word) const;
    std::size_t size() const noexcept;

private:
    using Words = std::set<std::string, std::less<>>;
    Shared<Words> words_;
};

} // namespace vanoka
