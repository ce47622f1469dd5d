#include "WordsDocument.h"

#include "MostUsed.h"
#include "text/Rows.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace vanoka::WordsDocument {

namespace {

using EnglishUse = PersonalWords::EnglishUse;

constexpr std::string_view englishMark = "english", forgottenMark = "forgotten";
constexpr std::string_view byteOrderMark = "\uFEFF";

std::optional<std::int64_t> count(std::string_view field, std::int64_t least) {
    const auto number = text::integer(field);
    return number && *number >= least && *number <= LearntWords::largestCount ? number : std::nullopt;
}

std::string noCount(std::int64_t least) {
    return "the count is no whole number from " + std::to_string(least) + " to " +
           std::to_string(LearntWords::largestCount);
}

/// Takes one line after another; each returns what is wrong with it, nothing when it is taken.
class Reader {
public:
    std::string take(std::string_view line) {
        if (line.empty() || line.starts_with('#'))
            return {};
        if (line.ends_with('\r'))
            return "it ends in CR LF; a line ends in a line feed alone";
        const auto fields = fieldsOf(line);
        const LearntWord form = LearntWords::formOf(fields.front());
        const std::string& word = form.english.empty() ? form.sinhala : form.english;
        if (word.empty())
            return "it does not begin with a word of two letters or more, all Sinhala or all from a to z";
        if (fields.size() == 2 && fields[1] == forgottenMark)
            return takeForgotten(word);
        if (fields.size() == 4 && fields[1] == englishMark && !form.english.empty())
            return takeEnglish(word, fields[2], fields[3]);
        if (fields.size() == 2 && !form.sinhala.empty())
            return takeSinhala(word, fields[1]);
        return "it is no row of a word and its count, of an English word and its two, or of a forgotten word";
    }

    WordTally tally;

private:
    std::string takeForgotten(const std::string& word) {
        return take(word, 0, [&] { tally.forgotten.insert(word); });
    }

    std::string takeEnglish(const std::string& word, std::string_view kept, std::string_view typed) {
        const auto first = count(kept, 0), second = count(typed, 0);
        if (!first || !second)
            return noCount(0);
        return take(word, tally.english.size(),
                    [&] { tally.english.emplace(word, EnglishUse{*first, *second}); });
    }

    std::string takeSinhala(const std::string& word, std::string_view field) {
        const auto number = count(field, 1);
        if (!number)
            return noCount(1);
        return take(word, tally.sinhala.size(), [&] { tally.sinhala.emplace(word, *number); });
    }

    /// Beside so many words of its kind. Of those that are forgotten there may be any number, as in a store.
    template <class Add>
    std::string take(const std::string& word, std::size_t others, Add add) const {
        if (tally.sinhala.contains(word) || tally.english.contains(word) || tally.forgotten.contains(word))
            return "the word stands there already";
        if (others >= static_cast<std::size_t>(LearntWords::most))
            return "these are more than " + std::to_string(LearntWords::most) + " words, which is the most";
        add();
        return {};
    }
};

template <class Rows, class Uses>
void writeRows(const Rows& rows, Uses usesOf, std::string& document, auto writeCounts) {
    for (const auto* row : mostUsedFirst(rows, usesOf)) {
        document += row->first + '\t';
        writeCounts(row->second);
        document += '\n';
    }
}

} // namespace

std::vector<std::string_view> fieldsOf(std::string_view line) {
    std::vector<std::string_view> fields;
    for (std::size_t end = 0; end != std::string_view::npos;) {
        end = line.find('\t');
        fields.push_back(line.substr(0, end));
        line.remove_prefix(end == std::string_view::npos ? line.size() : end + 1);
    }
    return fields;
}

std::string write(const WordTally& tally) {
    std::string document = "# Sinhala words, and how often each was put in\n";
    writeRows(
        tally.sinhala, [](std::int64_t uses) { return uses; }, document,
        [&](std::int64_t uses) { document += std::to_string(uses); });
    document += "# English words: how often each was kept, and was typed in Sinhala\n";
    writeRows(
        tally.english, [](const EnglishUse& use) { return use.kept + use.typedInSinhala; }, document,
        [&](const EnglishUse& use) {
            document.append(englishMark).append("\t" + std::to_string(use.kept));
            document += '\t' + std::to_string(use.typedInSinhala);
        });
    document += "# Never learnt again\n";
    for (const std::string& word : tally.forgotten)
        document.append(word).append("\t").append(forgottenMark).append("\n");
    return document;
}

std::variant<WordTally, Problem> read(std::string_view document) {
    if (document.starts_with(byteOrderMark))
        document.remove_prefix(byteOrderMark.size());
    Reader reader;
    for (std::size_t line = 1; !document.empty(); ++line) {
        const std::size_t end = std::min(document.find('\n'), document.size());
        if (std::string reason = reader.take(document.substr(0, end)); !reason.empty())
            return Problem{line, std::move(reason)};
        document.remove_prefix(std::min(end + 1, document.size()));
    }
    return std::move(reader.tally);
}

} // namespace vanoka::WordsDocument
