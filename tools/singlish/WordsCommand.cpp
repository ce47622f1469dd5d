#include "WordsCommand.h"

#include "Chart.h"
#include "ExitStatus.h"
#include "FileReading.h"
#include "WordMessages.h"
#include "WordsDocument.h"
#include "text/Rows.h"
#include "text/Visible.h"

#include <istream>
#include <ostream>

namespace vanoka {

namespace {

std::string counted(std::size_t count, const std::string& kind) {
    return std::to_string(count) + " " + kind + (count == 1 ? " word" : " words");
}

std::string noWord(std::string_view text) {
    return text::visible(text) +
           " is no word that is learnt: two letters or more, all Sinhala or all from a to z";
}

/// The row of a word for people: what the document says of it.
std::vector<std::string> shownRow(std::string_view line) {
    const auto fields = WordsDocument::fieldsOf(line);
    std::vector<std::string> row(fields.begin(), fields.end());
    if (row.size() == 4)
        row = {row[0], "kept " + row[2] + ", in Sinhala " + row[3]};
    return row;
}

} // namespace

WordsCommand::WordsCommand(const std::filesystem::path& path, std::istream& input, std::ostream& output,
                           std::ostream& errors)
    : database_(path, WordDatabase::longestWait, WordDatabase::Outlasts::powerFailures),
      input_(input),
      output_(output),
      errors_(errors) {}

int WordsCommand::run(std::span<const std::string> arguments) {
    const std::string_view verb = arguments.empty() ? "list" : std::string_view(arguments.front());
    const auto operands = arguments.subspan(arguments.empty() ? 0 : 1);
    const auto takes = [&](std::string_view name, std::size_t count) {
        return verb == name && operands.size() == count;
    };
    if (takes("list", 0))
        return list();
    if (takes("add", 1))
        return add(operands[0]);
    if (takes("forget", 1))
        return forget(operands[0]);
    if (takes("export", 0))
        return exportDocument();
    if (takes("import", 1))
        return importDocument(operands[0]);
    if (takes("erase", 0))
        return erase();
    errors_ << "singlish: words takes list, add WORD, forget WORD, export, import FILE or erase\n";
    return ExitStatus::usage;
}

int WordsCommand::list() {
    WordTally words;
    if (const int status = read(words))
        return status;
    std::vector<std::vector<std::string>> rows;
    const std::string document = WordsDocument::write(words);
    for (std::string_view rest = document; !rest.empty();)
        if (const std::string_view line = text::takeLine(rest); !line.starts_with('#'))
            rows.push_back(shownRow(line));
    if (words == WordTally())
        output_ << "Nothing is learnt yet.\n";
    writeColumns(output_, std::move(rows));
    return ExitStatus::done;
}

int WordsCommand::add(const std::string& word) {
    const LearntWord form = LearntWords::formOf(word);
    if (form == LearntWord())
        return refuse(noWord(word));
    return stored(database_.remember(form), text::visible(word) + " is learnt.");
}

int WordsCommand::forget(const std::string& word) {
    const LearntWord form = LearntWords::formOf(word);
    if (form == LearntWord())
        return refuse(noWord(word));
    return stored(database_.apply({WordChange::Kind::forget, form}),
                  text::visible(word) + " is forgotten, and is not learnt again.");
}

int WordsCommand::exportDocument() {
    WordTally words;
    if (const int status = read(words))
        return status;
    output_ << WordsDocument::write(words);
    return ExitStatus::done;
}

/// All or nothing.
int WordsCommand::importDocument(const std::string& path) {
    const auto [document, problem] = FileReading::contentsOf(path, input_, WordsDocument::largest);
    if (!problem.empty())
        return tell(problem, ExitStatus::failed);
    if (document.size() > WordsDocument::largest)
        return refuse(text::visible(path) + " is larger than words may be; your words stay as they are");
    const auto read = WordsDocument::read(document);
    if (const auto* wrong = std::get_if<WordsDocument::Problem>(&read))
        return refuse(text::visible(path) + ", line " + std::to_string(wrong->line) + ": " + wrong->reason +
                      "; your words stay as they are");
    const auto& words = std::get<WordTally>(read);
    return stored(database_.merge(words), "Imported: " + counted(words.sinhala.size(), "Sinhala") + ", " +
                                              counted(words.english.size(), "English") + ", " +
                                              counted(words.forgotten.size(), "forgotten") + ".");
}

int WordsCommand::erase() {
    return stored(database_.erase(), "All that was learnt is erased.");
}

/// What is stored; says why that cannot be told, if so.
int WordsCommand::read(WordTally& words) {
    std::error_code ignored;
    if (!database_.path().empty() && !std::filesystem::exists(database_.path(), ignored))
        return ExitStatus::done;
    if (const Fault fault = database_.read(words))
        return tell(WordMessages::unread(database_.path(), fault.reason), ExitStatus::failed);
    if (!database_.setAside().empty())
        return tell(WordMessages::setAside(database_.setAside()), ExitStatus::failed);
    return ExitStatus::done;
}

/// What became of an edit.
int WordsCommand::stored(const Fault& fault, const std::string& outcome) {
    if (fault)
        return tell(WordMessages::unstored(database_.path(), fault.reason), ExitStatus::failed);
    if (!database_.setAside().empty() && std::filesystem::exists(database_.setAside()))
        tell(WordMessages::setAside(database_.setAside()), ExitStatus::done);
    if (const auto unforced = database_.forceNames())
        return tell(WordMessages::unforced(database_.path(), unforced.message()), ExitStatus::failed);
    output_ << outcome << '\n';
    return ExitStatus::done;
}

int WordsCommand::refuse(std::string_view message) {
    return tell(message, ExitStatus::refused);
}

int WordsCommand::tell(std::string_view message, int status) {
    errors_ << "singlish: " << text::visibleLines(message) << '\n';
    return status;
}

} // namespace vanoka
