#pragma once

#include "typing/KeyEvent.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Key events as text: a character stands for the key that types it, every other key for its name in angle
/// brackets, with S- (Shift), C- (Control), A- (Option) and D- (Command) before it: "amma<space><C-c><left>".
namespace vanoka::test {

/// The event that one key's text stands for; nothing when it stands for none.
std::optional<KeyEvent> keyNamed(std::string_view name);

/// The text of a key; the inverse of `keyNamed` for all that it returns.
std::string nameOf(const KeyEvent& event);

/// The keys of a text; fails the running test when one is not known.
std::vector<KeyEvent> keys(std::string_view text);

/// The names of all keys that have one.
std::vector<std::string> keyNames();

} // namespace vanoka::test
