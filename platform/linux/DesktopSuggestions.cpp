#include "DesktopSuggestions.h"

#include "WordListFiles.h"

#include <utility>

namespace vanoka {

namespace {

/// The Sinhala list takes as long as all others several times over, and so has a thread of its own.
std::shared_ptr<const SuggestionLists> readLists() {
    SuggestionListTexts texts = WordListFiles::read().texts;
    SuggestionListTexts sinhala;
    sinhala.sinhala.swap(texts.sinhala);
    auto reading = std::async(std::launch::async, [&] { return readSuggestionLists(sinhala).sinhala; });
    auto lists = std::make_shared<SuggestionLists>(readSuggestionLists(texts));
    lists->sinhala = reading.get();
    return lists;
}

} // namespace

DesktopSuggestions::DesktopSuggestions(FileUserDefaults& defaults, std::function<void()> listsAreRead)
    : defaults_(defaults),
      watch_(defaults.pathOf(SuggestionChoices::storedName)),
      listsAreRead_(std::move(listsAreRead)) {
    enforce(stored());
}

void DesktopSuggestions::choose(const SuggestionChoices& choices) {
    const auto edit = defaults_.lock(SuggestionChoices::storedName);
    defaults_.setData(SuggestionChoices::storedName, textOf(choices));
    watch_.hasChanged(); // it is this one
    enforce(choices);
}

void DesktopSuggestions::toggle(const SuggestionSwitch& which) {
    const auto edit = defaults_.lock(SuggestionChoices::storedName);
    SuggestionChoices choices = stored();
    choices.*which.choice = !(choices_.*which.choice);
    choose(choices);
}

bool DesktopSuggestions::adoptStored() {
    if (!watch_.hasChanged())
        return false;
    const SuggestionChoices before = choices_;
    enforce(stored());
    return choices_ != before;
}

bool DesktopSuggestions::adoptLists() {
    if (!reading_.valid())
        return false;
    const auto lists = reading_.get();
    suggestions_.lists = lists;
    store_.emplace(WordDatabase::standardPath(),
                   [lists](std::string_view word) { return lists->english.contains(word); });
    suggestions_.store = &*store_;
    enforce(choices_);
    return true;
}

SuggestionChoices DesktopSuggestions::stored() {
    return suggestionChoicesIn(defaults_.data(SuggestionChoices::storedName).value_or(""));
}

void DesktopSuggestions::enforce(const SuggestionChoices& choices) {
    choices_ = choices;
    if (choices.areOn && !suggestions_.lists && !reading_.valid())
        read();
    suggestions_.areOn = choices.areOn && suggestions_.lists;
    suggestions_.isPrivate = choices.isPrivate;
    suggestions_.limit = choices.rows;
}

void DesktopSuggestions::read() {
    reading_ = std::async(std::launch::async, [this] {
        auto lists = readLists();
        listsAreRead_();
        return lists;
    });
}

} // namespace vanoka
