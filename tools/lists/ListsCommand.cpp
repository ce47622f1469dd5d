#include "ListsCommand.h"

#include "EmojiAnnotations.h"
#include "ExitStatus.h"
#include "ListCheck.h"
#include "ListReading.h"
#include "SinhalaList.h"
#include "WordCounter.h"
#include "Words.h"
#include "text/LetterCase.h"
#include "text/Rows.h"
#include "text/Visible.h"
#include "words/EmojiWords.h"
#include "words/EnglishWordList.h"
#include "words/SinhalaWordList.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <istream>
#include <iterator>
#include <ostream>

namespace vanoka {

namespace {

using Arguments = std::span<const std::string_view>;
using Names = std::vector<std::string_view>;

constexpr std::size_t pieceSize = 256 * 1024; // in bytes

constexpr std::string_view annotationsFolder = "/usr/share/unicode/cldr/common/annotations";
constexpr std::string_view emojiTestFile = "/usr/share/unicode/emoji/emoji-test.txt";

const Names& optionsOf(std::string_view command) {
    static const std::map<std::string_view, Names> all = {
        {"count", {"--minimum"}},
        {"english", {"--minimum", "--chat"}},
        {"emoji", {"--annotations", "--emoji-test"}},
        {"check", {"--as"}},
        {"stats", {"--as"}},
    };
    static const Names none;
    const auto found = all.find(command);
    return found == all.end() ? none : found->second;
}

} // namespace

ListsCommand::ListsCommand(std::istream& input, std::ostream& output, std::ostream& errors, Progress progress)
    : input_(input), output_(output), errors_(errors), progress_(std::move(progress)) {}

std::optional<int> ListsCommand::run(Arguments arguments) {
    const std::string_view command = arguments.empty() ? std::string_view() : arguments.front();
    if (optionsOf(command).empty())
        return std::nullopt;
    std::string problem;
    const auto options = Options::read(arguments.subspan(1), optionsOf(command), problem);
    if (!options)
        return misuse(problem);
    if (command == "count")
        return count(*options, Language::sinhala);
    if (command == "english")
        return count(*options, Language::english);
    if (command == "emoji")
        return emoji(*options);
    return command == "check" ? check(*options) : stats(*options);
}

int ListsCommand::misuse(const std::string& problem) {
    errors_ << "vanoka-lists: " << text::visible(problem) << "\nvanoka-lists --help tells what it does.\n";
    return ExitStatus::usage;
}

int ListsCommand::cannotRead(const std::string& path) {
    errors_ << "vanoka-lists: Cannot read " << text::visible(path) << ": " << std::strerror(errno) << '\n';
    return ExitStatus::failed;
}

/// Calls `take` with the file's pieces; false, with a message, when it cannot be read to its end.
template <class Take>
bool ListsCommand::read(const std::string& path, Take take) {
    std::ifstream file;
    errno = 0;
    if (path != "-")
        file.open(path, std::ios::binary);
    std::istream& source = path == "-" ? input_ : file;
    std::string piece(pieceSize, '\0');
    while (source) {
        source.read(piece.data(), static_cast<std::streamsize>(piece.size()));
        take(std::string_view(piece).substr(0, static_cast<std::size_t>(source.gcount())));
    }
    // A folder opens, and fails when it is read: that is no end.
    if (!source.eof() || source.bad() || errno == EISDIR) {
        cannotRead(path);
        return false;
    }
    return true;
}

std::optional<std::string> ListsCommand::contentsOf(const std::string& path) {
    std::string contents;
    if (!read(path, [&](std::string_view piece) { contents += piece; }))
        return std::nullopt;
    return contents;
}

int ListsCommand::count(const Options& options, Language language) {
    const auto minimum = options.number("--minimum", 1, 1);
    if (!minimum)
        return misuse("--minimum is a whole number from 1 up");
    std::string chat;
    if (const auto path = options.value("--chat")) {
        const auto contents = contentsOf(*path);
        if (!contents)
            return ExitStatus::failed;
        chat = *contents;
    }

    WordCounter words;
    std::size_t bytes = 0;
    const auto countIn = [&](std::string_view text) {
        const auto add = [&](std::string_view word) { words.add(word); };
        if (language == Language::sinhala)
            forEachSinhalaWord(text, add);
        else
            forEachEnglishWord(text, add);
    };
    const std::vector<std::string> paths =
        options.operands().empty() ? std::vector<std::string>{"-"} : options.operands();
    for (const std::string& path : paths) {
        PieceCutter cutter; // a word does not go on in the next file
        const bool isRead = read(path, [&](std::string_view piece) {
            cutter.write(piece, countIn);
            bytes += piece.size();
            progress_(bytes, words.distinct());
        });
        if (!isRead)
            return ExitStatus::failed;
        cutter.finish(countIn);
    }
    for (const auto& [word, count] : words.ranked(*minimum))
        output_ << word << '\t' << count << '\n';

    for (std::string_view rest = ListReading::withoutByteOrderMark(chat); !rest.empty();)
        if (const std::string_view line = text::takeLine(rest); !line.starts_with('#'))
            forEachEnglishWord(line, [&](std::string_view word) { output_ << word << "\tchat\n"; });
    return ExitStatus::done;
}

int ListsCommand::emoji(const Options& options) {
    if (!options.operands().empty())
        return misuse("emoji takes options alone");
    const std::string folder = options.value("--annotations").value_or(std::string(annotationsFolder));
    const auto emojiTest = contentsOf(options.value("--emoji-test").value_or(std::string(emojiTestFile)));
    if (!emojiTest) {
        errors_ << "The Debian package unicode-data has that file.\n";
        return ExitStatus::failed;
    }
    std::vector<EmojiAnnotations> languages;
    for (const char* name : {"/si.xml", "/en.xml"}) {
        const auto xml = contentsOf(folder + name);
        if (!xml) {
            errors_ << "The Debian package unicode-cldr-core has that file.\n";
            return ExitStatus::failed;
        }
        auto annotations = readEmojiAnnotations(*xml);
        if (!annotations) {
            errors_ << "vanoka-lists: " << text::visible(folder) << name << " is not well-formed XML\n";
            return ExitStatus::refused;
        }
        languages.push_back(std::move(*annotations));
    }
    output_ << emojiList(readEmoji(*emojiTest), languages);
    return ExitStatus::done;
}

int ListsCommand::check(const Options& options) {
    const auto name = options.value("--as");
    if (options.operands().size() != 1)
        return misuse("check takes one list");
    if (name && !listKind(*name))
        return misuse("--as is sinhala, english or emoji");
    const std::string& path = options.operands()[0];
    const auto list = contentsOf(path);
    if (!list)
        return ExitStatus::failed;
    const ListKind kind = name ? *listKind(*name) : guessListKind(*list);
    const auto problems = problemsOf(*list, kind);
    for (const LineProblem& problem : problems) {
        const bool isWarning = problem.kind == LineProblem::Kind::warning;
        output_ << text::visible(path) << ':' << problem.number << ": " << (isWarning ? "warning: " : "")
                << problem.reason << '\n';
    }
    output_ << "Read as a list of " << nameOf(kind)
            << " words; lines skipped: " << countOf(LineProblem::Kind::skipped, problems)
            << "; warnings: " << countOf(LineProblem::Kind::warning, problems) << '\n';
    return problems.empty() ? ExitStatus::done : ExitStatus::refused;
}

int ListsCommand::stats(const Options& options) {
    const auto name = options.value("--as");
    if (options.operands().size() != 1)
        return misuse("stats takes one list");
    if (name && !listKind(*name))
        return misuse("--as is sinhala, english or emoji");
    const auto text = contentsOf(options.operands()[0]);
    if (!text)
        return ExitStatus::failed;
    const std::string_view list = ListReading::withoutByteOrderMark(*text);
    const ListKind kind = name ? *listKind(*name) : guessListKind(list);
    output_ << "kind                " << nameOf(kind) << '\n';
    if (kind == ListKind::emoji) {
        output_ << "words               " << EmojiWords(list).count() << '\n';
    } else if (kind == ListKind::english) {
        output_ << "words               " << EnglishWordList(list).count() << '\n';
    } else {
        const SinhalaWordList words = readSinhalaList(list);
        std::size_t bytes = 0;
        std::int64_t largest = 0;
        for (const auto& [word, count] : words.words()) {
            bytes += word.size();
            largest = std::max(largest, count);
        }
        output_ << "words               " << words.size() << '\n'
                << "largest count       " << largest << '\n'
                << "typical count       " << words.typicalCount() << '\n'
                << "bytes of the words  " << bytes << '\n'
                << "bytes in memory     " << words.memory() << '\n';
    }
    output_ << "lines skipped       " << countOf(LineProblem::Kind::skipped, problemsOf(list, kind)) << '\n';
    return ExitStatus::done;
}

} // namespace vanoka
