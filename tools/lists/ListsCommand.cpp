#include "ListsCommand.h"

#include "CountScale.h"
#include "EmojiAnnotations.h"
#include "ExitStatus.h"
#include "FileReading.h"
#include "ListCheck.h"
#include "ReadingAccuracy.h"
#include "WordCounter.h"
#include "Words.h"
#include "text/LetterCase.h"
#include "text/Rows.h"
#include "text/Visible.h"
#include "words/EmojiWords.h"
#include "words/EnglishWordList.h"
#include "words/ListReading.h"
#include "words/SinhalaWordList.h"
#include "words/WordFile.h"

#include <algorithm>
#include <istream>
#include <ostream>

namespace vanoka {

namespace {

constexpr std::string_view annotationsFolder = "/usr/share/unicode/cldr/common/annotations";
constexpr std::string_view emojiTestFile = "/usr/share/unicode/emoji/emoji-test.txt";

constexpr std::string_view help = R"(Make word lists for the Vanoka keyboard, and look into them.

Usage:
  vanoka-lists count [--minimum N] [FILE…]
                               count the Sinhala words of texts, the most frequent first
  vanoka-lists english [--minimum N] [--chat FILE] [FILE…]
                               the same for English words, in lower case, and with chat words
  vanoka-lists emoji [--annotations FOLDER] [--emoji-test FILE]
                               the emoji for Sinhala and English words, from Unicode's data
  vanoka-lists check [--as KIND] LIST
                               every line that does not load as it is written, and why
  vanoka-lists stats [--as KIND] LIST
                               how many words it has and what it takes
  vanoka-lists scale [--total N] LIST
                               the list with counts out of so many words, ten million if not given
  vanoka-lists suggest [--personal LIST] [--limit N] [--reading no] LIST
                               type Singlish or Sinhala and see the suggestions
  vanoka-lists accuracy [--english LIST] [--unlisted N] [--every N] LIST PAIRS
                               how often what people typed is read as the word that they meant
  vanoka-lists --help, --version

Texts are UTF-8; without a FILE, or with -, they come from standard input. Lists go to standard output.
A KIND is sinhala, english or emoji; without one it is guessed. The option --minimum leaves out words that
come less often. PAIRS is a text of lines "typed<tab>word" or "typed<tab>word<tab>count".

Exit status: 0 done, 1 lines do not load as they are or a file is damaged, 2 not understood, 3 something could not be read
or written.
)";

} // namespace

const Program ListsCommand::program = {.name = "vanoka-lists",
                                       .help = {{"", help}},
                                       .commands = {{"count", {"--minimum"}},
                                                    {"english", {"--minimum", "--chat"}},
                                                    {"emoji", {"--annotations", "--emoji-test"}},
                                                    {"check", {"--as"}},
                                                    {"stats", {"--as"}},
                                                    {"scale", {"--total"}},
                                                    {"suggest", {"--personal", "--limit", "--reading"}},
                                                    {"accuracy", {"--english", "--unlisted", "--every"}}},
                                       .noCommand = "No command",
                                       .noSuchOption = "No such option: ",
                                       .hint = "vanoka-lists --help tells what it does."};

ListsCommand::ListsCommand(std::istream& input, std::ostream& output, std::ostream& errors, Progress progress,
                           EnglishInUse englishInUse)
    : input_(input),
      output_(output),
      errors_(errors),
      progress_(std::move(progress)),
      englishInUse_(std::move(englishInUse)) {}

std::optional<int> ListsCommand::run(const CommandLine& line) {
    if (line.command == "count")
        return count(line, Language::sinhala);
    if (line.command == "english")
        return count(line, Language::english);
    if (line.command == "emoji")
        return emoji(line);
    if (line.command == "check")
        return check(line);
    if (line.command == "stats")
        return stats(line);
    if (line.command == "scale")
        return scale(line);
    return line.command == "accuracy" ? std::optional(accuracy(line)) : std::nullopt;
}

int ListsCommand::misuse(const std::string& problem) {
    return program.misused(problem, errors_);
}

std::optional<std::string> ListsCommand::contentsOf(const std::string& path) {
    auto [text, problem] = FileReading::contentsOf(path, input_);
    if (problem.empty())
        return std::move(text);
    program.tell(problem, errors_);
    return std::nullopt;
}

int ListsCommand::count(const CommandLine& line, Language language) {
    const auto minimum = line.number("--minimum", 1, 1);
    if (!minimum)
        return misuse("--minimum is a whole number from 1 up");
    std::string chat;
    if (const auto path = line.value("--chat")) {
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
        line.operands.empty() ? std::vector<std::string>{"-"} : line.operands;
    for (const std::string& path : paths) {
        PieceCutter cutter; // a word does not go on in the next file
        const std::string problem = FileReading::readPieces(path, input_, [&](std::string_view piece) {
            cutter.write(piece, countIn);
            bytes += piece.size();
            progress_(bytes, words.distinct());
            return true;
        });
        if (!problem.empty())
            return program.failed(problem, errors_);
        cutter.finish(countIn);
    }
    for (const auto& [word, count] : words.ranked(*minimum))
        output_ << word << '\t' << count << '\n';

    for (std::string_view rest = ListReading::withoutByteOrderMark(chat); !rest.empty();)
        if (const std::string_view row = text::takeLine(rest); !row.starts_with('#'))
            forEachEnglishWord(row, [&](std::string_view word) { output_ << word << "\tchat\n"; });
    return ExitStatus::done;
}

int ListsCommand::emoji(const CommandLine& line) {
    if (!line.operands.empty())
        return misuse("emoji takes options alone");
    const std::string folder = line.value("--annotations").value_or(std::string(annotationsFolder));
    const auto emojiTest = contentsOf(line.value("--emoji-test").value_or(std::string(emojiTestFile)));
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
            program.tell(folder + name + " is not well-formed XML", errors_);
            return ExitStatus::refused;
        }
        languages.push_back(std::move(*annotations));
    }
    output_ << emojiList(readEmoji(*emojiTest), languages);
    return ExitStatus::done;
}

int ListsCommand::check(const CommandLine& line) {
    const auto name = line.value("--as");
    if (line.operands.size() != 1)
        return misuse("check takes one list");
    if (name && !listKind(*name))
        return misuse("--as is sinhala, english or emoji");
    const std::string& path = line.operands[0];
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

int ListsCommand::stats(const CommandLine& line) {
    const auto name = line.value("--as");
    if (line.operands.size() != 1)
        return misuse("stats takes one list");
    if (name && !listKind(*name))
        return misuse("--as is sinhala, english or emoji");
    const auto text = contentsOf(line.operands[0]);
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
        const SinhalaWordList words(readWordCounts(list));
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

int ListsCommand::scale(const CommandLine& line) {
    const auto total = line.number("--total", CountScale::usualTotal, 1, ListReading::largestCount);
    if (!total)
        return misuse("--total is a whole number from 1 to " + std::to_string(ListReading::largestCount));
    if (line.operands.size() != 1)
        return misuse("scale takes one list");
    const auto list = contentsOf(line.operands[0]);
    if (!list)
        return ExitStatus::failed;
    const auto scaled = CountScale::scaled(*list, *total);
    if (!scaled) {
        program.tell("The list has no count above 0", errors_);
        return ExitStatus::refused;
    }
    output_ << *scaled;
    return ExitStatus::done;
}

std::optional<std::string> ListsCommand::englishOf(const CommandLine& line) {
    if (const auto path = line.value("--english"))
        return contentsOf(*path);
    return englishInUse_ ? englishInUse_() : std::string();
}

int ListsCommand::accuracy(const CommandLine& line) {
    const auto unlisted = line.number("--unlisted", 6, 0, 6);
    if (!unlisted || (*unlisted != 0 && *unlisted != 4 && *unlisted != 6))
        return misuse("--unlisted is 0, 4 or 6");
    const auto every = line.number("--every", 1, 1);
    if (!every)
        return misuse("--every is a whole number from 1 up");
    if (line.operands.size() != 2)
        return misuse("accuracy takes a list and a text of what was typed for which words");
    const auto list = contentsOf(line.operands[0]);
    const auto pairs = list ? contentsOf(line.operands[1]) : std::nullopt;
    const auto english = pairs ? englishOf(line) : std::nullopt;
    if (!english)
        return ExitStatus::failed;
    auto [romanizations, skipped] = readRomanizations(ListReading::withoutByteOrderMark(*pairs));
    std::vector<Romanization> measured;
    for (std::size_t i = 0; i < romanizations.size(); i += static_cast<std::size_t>(*every))
        measured.push_back(std::move(romanizations[i]));
    output_ << table(accuracyOf(SinhalaWordList(readWordCounts(*list)), EnglishWordList::ofFile(*english),
                                static_cast<TypedWords::Unlisted>(*unlisted), measured));
    if (skipped > 0)
        program.tell("Lines that are no romanizations: " + std::to_string(skipped), errors_);
    return skipped > 0 ? ExitStatus::refused : ExitStatus::done;
}

} // namespace vanoka
