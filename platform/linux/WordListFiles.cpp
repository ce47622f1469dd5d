#include "WordListFiles.h"

#include "AtomicFile.h"
#include "Folders.h"
#include "text/Utf8.h"

#include <array>
#include <string_view>
#include <utility>

namespace vanoka::WordListFiles {

namespace {

namespace fs = std::filesystem;

struct List {
    std::string_view name;
    std::string SuggestionListTexts::* text;
};

constexpr std::array lists = std::to_array<List>({
    {"si.tsv", &SuggestionListTexts::sinhala},
    {"en.tsv", &SuggestionListTexts::english},
    {"emoji.tsv", &SuggestionListTexts::emoji},
    {"never-offered.txt", &SuggestionListTexts::neverOffered},
});

std::string problemOf(const AtomicFile::Contents& contents) {
    if (contents.error)
        return contents.error.message();
    return contents.bytes && !text::isWellFormed(*contents.bytes) ? "It is not UTF-8" : "";
}

void readList(const List& list, const std::vector<fs::path>& folders, Found& found) {
    for (const fs::path& folder : folders) {
        const fs::path path = folder / list.name;
        AtomicFile::Contents contents = AtomicFile::read(path, largestFile);
        if (const std::string problem = problemOf(contents); !problem.empty()) {
            found.problems.push_back("The word list " + path.native() + " cannot be read: " + problem + ".");
        } else if (contents.bytes) {
            found.texts.*list.text = std::move(*contents.bytes);
            return;
        }
    }
    found.problems.push_back("The word list " + std::string(list.name) + " is not installed.");
}

} // namespace

std::vector<fs::path> folders() {
    std::vector<fs::path> all = {VANOKA_DATA_FOLDER "/vanoka", "/usr/share/vanoka",
                                 Folders::ofProgram().parent_path() / "share/vanoka"};
    if (fs::path own = Folders::ofData(); !own.empty())
        all.insert(all.begin(), std::move(own));
    return all;
}

Found read(const std::vector<fs::path>& from) {
    Found found;
    for (const List& list : lists)
        readList(list, from, found);
    return found;
}

} // namespace vanoka::WordListFiles
