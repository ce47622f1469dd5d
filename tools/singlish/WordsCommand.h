#pragma once

#include "WordDatabase.h"

#include <filesystem>
#include <iosfwd>
#include <span>
#include <string>
#include <string_view>

namespace vanoka {

/// "singlish words …": shows and edits what was learnt from the user's writing. Each call does one thing,
/// says what has come of it and returns an exit status.
class WordsCommand {
public:
    /// Shows and edits the words in the file at `path`, which a look alone does not make.
    WordsCommand(const std::filesystem::path& path, std::istream& input, std::ostream& output,
                 std::ostream& errors);

    /// Runs with the arguments after "words".
    int run(std::span<const std::string> arguments);

private:
    using Fault = WordDatabase::Fault;

    int list();
    int add(const std::string& word);
    int forget(const std::string& word);
    int exportDocument();
    int importDocument(const std::string& path);
    int erase();

    int read(WordTally& words);
    int stored(const Fault& fault, const std::string& outcome);
    int refuse(std::string_view message);
    int tell(std::string_view message, int status);

    WordDatabase database_;
    std::istream& input_;
    std::ostream& output_;
    std::ostream& errors_;
};

} // namespace vanoka
