#include "KeysCommand.h"

#include "Chart.h"
#include "ExitStatus.h"
#include "FileReading.h"
#include "ImportedKeys.h"
#include "LetterEditor.h"
#include "StoredKeys.h"
#include "settings/CustomizationJson.h"
#include "text/Visible.h"

#include <algorithm>
#include <istream>
#include <iterator>
#include <ostream>

namespace vanoka {

namespace {

using Arguments = std::span<const std::string_view>;

bool isBuiltIn(std::string_view key) {
    return SinglishTransliterator::builtInTokens().contains(key);
}

/// What of `customization` types nothing: keys for letters that the scheme does not have, and built-in keys
/// that are off and are none. Another version may have stored them.
std::vector<std::vector<std::string>> unknownEntries(const SinglishCustomization& customization) {
    std::vector<std::vector<std::string>> rows;
    for (const auto& added : customization.addedKeys)
        if (!SinglishScheme::letter(added.letter))
            rows.push_back({added.letter, added.key, "no such letter"});
    for (const std::string& key : customization.disabledKeys)
        if (!isBuiltIn(key))
            rows.push_back({"", key, "switched off; no built-in key"});
    return rows;
}

} // namespace

KeysCommand::KeysCommand(SinglishSettings& settings, std::istream& input, std::ostream& output,
                         std::ostream& errors)
    : settings_(settings), input_(input), output_(output), errors_(errors) {}

int KeysCommand::run(Arguments arguments) {
    const std::string_view verb = arguments.empty() ? "list" : arguments.front();
    const Arguments operands = arguments.empty() ? arguments : arguments.subspan(1);
    const auto takes = [&](std::string_view name, std::size_t count) {
        return verb == name && operands.size() == count;
    };
    if (takes("list", 0))
        return list();
    if (takes("check", 2))
        return check(operands[0], operands[1]);
    if (takes("add", 2))
        return add(operands[0], operands[1]);
    if (takes("remove", 1))
        return remove(operands[0]);
    if (takes("off", 1))
        return setBuiltIn(operands[0], false);
    if (takes("on", 1))
        return setBuiltIn(operands[0], true);
    if (takes("reset", 0))
        return reset();
    if (takes("export", 0))
        return exportDocument();
    if (takes("import", 1))
        return importDocument(std::string(operands[0]));
    errors_
        << "singlish: keys takes list, check KEY LETTER, add KEY LETTER, remove KEY, off KEY, on KEY, reset, "
           "export or import FILE\n";
    return ExitStatus::usage;
}

int KeysCommand::list() {
    if (const int status = unread())
        return status;
    std::vector<std::vector<std::string>> rows;
    for (const auto& letter : SinglishScheme::letters()) {
        for (const SinglishKeyState& state : settings_.keysFor(letter)) {
            if (state.kind == SinglishKeyState::Kind::added)
                rows.push_back({letter.display(), state.key, "your key"});
            else if (!state.isOn)
                rows.push_back({letter.display(), state.key, "switched off"});
            else if (state.takenBy)
                rows.push_back(
                    {letter.display(), state.key, "now types " + SinglishScheme::display(*state.takenBy)});
        }
    }
    std::ranges::move(unknownEntries(settings_.customization()), std::back_inserter(rows));
    if (rows.empty())
        output_ << "You have changed no keys.\n";
    writeColumns(output_, rows);
    return ExitStatus::done;
}

int KeysCommand::check(std::string_view key, std::string_view letterText) {
    if (const int status = unread())
        return status;
    const auto* letter = letterOf(letterText);
    if (!letter)
        return ExitStatus::refused;
    if (const auto problem = settings_.check(key, letter->id).problem)
        return refuse(message(*problem));
    output_ << text::visible(LetterEditor(*letter, settings_, std::string(key)).message().text) << '\n';
    return ExitStatus::done;
}

int KeysCommand::add(std::string_view key, std::string_view letterText) {
    const auto edit = settings_.beginEdit();
    const auto* letter = letterOf(letterText);
    if (!letter)
        return ExitStatus::refused;
    if (const auto problem = settings_.add(key, letter->id))
        return refuse(message(*problem));
    const int status = stored();
    if (status == ExitStatus::done)
        output_ << letter->example(key) << '\n';
    return status;
}

int KeysCommand::remove(std::string_view key) {
    const auto edit = settings_.beginEdit();
    const auto& added = settings_.customization().addedKeys;
    if (std::ranges::none_of(added, [key](const auto& entry) { return text::equal(entry.key, key); })) {
        const int status = unread();
        return status != ExitStatus::done ? status : refuse("You have added no key " + text::visible(key));
    }
    settings_.remove(key);
    return stored();
}

int KeysCommand::setBuiltIn(std::string_view key, bool on) {
    const auto edit = settings_.beginEdit();
    const bool isOff = settings_.customization().disabledKeys.contains(key);
    if (!isBuiltIn(key) && !(on && isOff))
        return refuse(text::visible(key) + " is not a built-in key");
    settings_.setBuiltIn(key, on);
    return stored();
}

int KeysCommand::reset() {
    const auto edit = settings_.beginEdit();
    settings_.reset();
    return stored();
}

int KeysCommand::exportDocument() {
    if (const int status = unread())
        return status;
    const auto document = CustomizationJson::encode(settings_.customization());
    if (!document)
        return refuse("The keys hold text that is not UTF-8");
    output_ << *document << '\n';
    return ExitStatus::done;
}

/// All or nothing, but what export gives is never refused for being unknown here.
int KeysCommand::importDocument(const std::string& path) {
    const auto [document, problem] = FileReading::contentsOf(path, input_, UserDefaults::largestValue);
    if (!problem.empty())
        return tell(problem, ExitStatus::failed);
    if (document.size() > UserDefaults::largestValue)
        return refuse(text::visible(path) + " is larger than keys may be; your keys stay as they are");
    const auto wanted = CustomizationJson::decode(document);
    if (!wanted)
        return refuse(text::visible(path) +
                      " is not a document of keys, as export writes it; your keys stay as they are");
    ImportedKeys keys = imported(*wanted);
    if (!keys.problems.empty())
        return refuse("Your keys stay as they are, because of\n" + keys.problems);
    const auto edit = settings_.beginEdit();
    settings_.replace(std::move(keys.keys));
    const int status = stored();
    const auto unknown = unknownEntries(settings_.customization());
    if (status == ExitStatus::done && !unknown.empty()) {
        tell("Imported, though without an effect:", status);
        writeColumns(errors_, unknown);
    }
    return status;
}

/// A letter is named by itself, by the way it is shown, or by a key that types it.
const SinglishScheme::Letter* KeysCommand::letterOf(std::string_view text) {
    for (const auto& letter : SinglishScheme::letters())
        if (text::equal(letter.id, text) || text::equal(letter.display(), text))
            return &letter;
    if (const auto typed = settings_.transliterator().letterTypedBy(text))
        return SinglishScheme::letter(*typed);
    refuse("No such letter: " + text::visible(text));
    return nullptr;
}

/// What became of an edit.
int KeysCommand::stored() {
    if (const std::string place = StoredKeys::setAside(settings_); !place.empty())
        tell(place, ExitStatus::done);
    const std::string problem = StoredKeys::storingProblem(settings_);
    return problem.empty() ? ExitStatus::done : tell(problem, ExitStatus::failed);
}

/// Says why what is shown would not be what is stored, if so.
int KeysCommand::unread() {
    const std::string problem = StoredKeys::readingProblem(settings_);
    return problem.empty() ? ExitStatus::done : tell(problem, ExitStatus::failed);
}

int KeysCommand::refuse(std::string_view message) {
    return tell(message, ExitStatus::refused);
}

int KeysCommand::tell(std::string_view message, int status) {
    errors_ << "singlish: " << text::visibleLines(message) << '\n';
    return status;
}

} // namespace vanoka
