#include "DesktopSuggestions.h"

#include "WordListFiles.h"

#include <malloc.h>
#include <utility>

namespace vanoka {

namespace {

/// The longer sequences would take a megabyte more in every engine.
constexpr auto unlisted = TypedWords::Unlisted::fourLetters;

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

/// What reading has taken and freed again is more than what it leaves, and the process lives for long.
void giveBackMemory() {
#ifdef __GLIBC__
    ::malloc_trim(0);
#endif
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

void DesktopSuggestions::change(const SuggestionChoices& before, const SuggestionChoices& after) {
    const auto edit = defaults_.lock(SuggestionChoices::storedName);
    SuggestionChoices choices = stored();
    const auto adopt = [&](auto which) {
        if (before.*which != after.*which)
            choices.*which = after.*which;
    };
    adopt(&SuggestionChoices::areOn);
    adopt(&SuggestionChoices::isPrivate);
    adopt(&SuggestionChoices::rows);
    choose(choices);
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
    if (!isRead_.exchange(false))
        return false;
    const auto lists = reading_.get();
    suggestions_.lists = lists;
    if (!store_)
        store_.emplace(WordDatabase::standardPath(),
                       [english = lists->english](std::string_view word) { return english.contains(word); });
    suggestions_.store = &*store_;
    if (!lists->reading)
        read([lists] { return std::make_shared<const SuggestionLists>(withReading(*lists, unlisted)); });
    enforce(choices_);
    return true;
}

SuggestionChoices DesktopSuggestions::stored() const {
    return suggestionChoicesIn(defaults_.data(SuggestionChoices::storedName).value_or(""));
}

void DesktopSuggestions::enforce(const SuggestionChoices& choices) {
    choices_ = choices;
    if (choices.areOn && !suggestions_.lists && !reading_.valid())
        read(readLists);
    suggestions_.areOn = choices.areOn && suggestions_.lists;
    suggestions_.isPrivate = choices.isPrivate;
    suggestions_.limit = choices.rows;
}

void DesktopSuggestions::read(std::function<Lists()> lists) {
    reading_ = std::async(std::launch::async, [this, lists = std::move(lists)] {
        auto result = lists();
        giveBackMemory();
        isRead_ = true;
        listsAreRead_();
        return result;
    });
}

} // namespace vanoka
