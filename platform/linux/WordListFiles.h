#pragma once

#include "SuggestionLists.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

/// The word lists as files: "si.tsv", "en.tsv", "emoji.tsv" and "never-offered.txt".
namespace vanoka::WordListFiles {

/// A file of more bytes is none of ours, and is not read.
inline constexpr std::size_t largestFile = 64U << 20;

/// Where the lists are looked for, in this order: the user's data folder, where this was installed, where the
/// distribution's packages are, and beside the folder of the running program, as in a build.
std::vector<std::filesystem::path> folders();

/// What was read, and a sentence for each file that could not be: it is there and unreadable, or in none of
/// the folders.
struct Found {
    SuggestionListTexts texts;
    std::vector<std::string> problems;
};

/// Takes each list from the first of the folders that has one that can be read. One that is a folder, too
/// large, not well-formed UTF-8 or not to be read at all is passed over; a list that is nowhere is empty.
Found read(const std::vector<std::filesystem::path>& from = folders());

} // namespace vanoka::WordListFiles
