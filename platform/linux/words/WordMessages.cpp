#include "WordMessages.h"

#include "WordDatabase.h"

namespace vanoka::WordMessages {

namespace {

std::string placed(const char* preposition, const std::filesystem::path& path, std::string_view reason) {
    const std::string place = path.empty() ? "" : std::string(" ") + preposition + " " + path.string();
    return place + ": " + std::string(reason) + ".";
}

} // namespace

std::string unread(const std::filesystem::path& path, std::string_view reason) {
    return "Your words cannot be read" + placed("from", path, reason);
}

std::string unstored(const std::filesystem::path& path, std::string_view reason) {
    return "Your words could not be stored" + placed("in", path, reason);
}

std::string unforced(const std::filesystem::path& path, std::string_view reason) {
    return "A loss of power may undo your last change, which is stored" + placed("in", path, reason);
}

std::string setAside(const std::filesystem::path& path) {
    return "Damaged words are kept as " + path.string() + ".";
}

std::vector<std::string> problemsOf(const std::filesystem::path& path) {
    std::vector<std::string> problems;
    std::error_code ignored;
    if (std::filesystem::exists(path, ignored)) {
        WordTally words;
        WordDatabase database(path, WordDatabase::longestWait);
        if (const auto fault = database.read(words))
            problems.push_back(unread(path, fault.reason));
    }
    for (const auto& damaged : WordDatabase::damagedBeside(path))
        problems.push_back(setAside(damaged));
    return problems;
}

} // namespace vanoka::WordMessages
