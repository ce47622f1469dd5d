#include "VanokaInputController.h"

#include "text/Equivalence.h"
#include "text/Utf8.h"

#include <utility>

namespace vanoka {

VanokaInputController::VanokaInputController(std::optional<std::string> ownBundleIdentifier,
                                             SinglishSettings& settings)
    : ownBundleIdentifier_(std::move(ownBundleIdentifier)),
      settings_(settings),
      typing_(SinglishTransliterator::standard()) {}

bool VanokaInputController::handle(const KeyEvent* event, TextInputClient* client) {
    if (!event || event->type != KeyEvent::keyDown || !client || isOwn(*client))
        return false;
    adoptSuggestions();
    if (typing_.needsCandidates(*event)) // or what the key does would depend on when it comes
        findCandidates();
    return apply(typing_.press(*event, settings_.transliterator()), *client);
}

bool VanokaInputController::updateCandidates() {
    adoptSuggestions();
    findCandidates();
    if (told_ == typing_.line())
        return false;
    told_ = typing_.line();
    return true;
}

bool VanokaInputController::chooseCandidate(std::size_t row, TextInputClient* client) {
    typing_.setLearning(isLearning()); // the field may have become a private one since the last key
    return client && apply(typing_.choose(row), *client);
}

bool VanokaInputController::moveHighlight(std::ptrdiff_t rows, TextInputClient* client) {
    return client && apply(typing_.moveHighlight(rows), *client);
}

void VanokaInputController::commitComposition(TextInputClient* client) {
    if (client)
        apply(typing_.end(), *client);
}

void VanokaInputController::activateServer() {
    settings_.reloadIfChanged();
}

void VanokaInputController::deactivateServer(TextInputClient* client) {
    commitComposition(client);
}

std::vector<VanokaInputController::MenuItem> VanokaInputController::menu() {
    return {{"Vanoka Settings\u2026", MenuAction::showSettings}, {"About Vanoka", MenuAction::showAbout}};
}

/// The process's own windows type plain Latin, or nobody could enter a key in them.
bool VanokaInputController::isOwn(const TextInputClient& client) const {
    const auto identifier = client.bundleIdentifier();
    if (!identifier || !ownBundleIdentifier_)
        return !identifier && !ownBundleIdentifier_;
    return text::equal(*identifier, *ownBundleIdentifier_);
}

bool VanokaInputController::isSuggesting() const {
    return suggestions_ && suggestions_->areOn && privacy_ != FieldPrivacy::notSuggested;
}

bool VanokaInputController::isLearning() const {
    return isSuggesting() && !suggestions_->isPrivate && privacy_ == FieldPrivacy::open;
}

void VanokaInputController::adoptSuggestions() {
    typing_.setSuggesting(isSuggesting());
    typing_.setLearning(isLearning());
}

void VanokaInputController::findCandidates() {
    const auto request = typing_.request();
    if (!request || !suggestions_)
        return;
    static const SuggestionLists none;
    const SuggestionLists& lists = suggestions_->lists ? *suggestions_->lists : none;
    const auto personal = suggestions_->store ? suggestions_->store->words() : nullptr;
    typing_.take(request->generation, candidatesFor(request->word, lists, personal.get(), suggestions_->limit,
                                                    readings(), &suggestions_->memory));
}

/// Made anew when the user's keys have changed.
const LetterReadings& VanokaInputController::readings() {
    const auto& keys = settings_.customization().addedKeys;
    if (keys != readKeys_) {
        readings_ = LetterReadings(settings_.customization());
        readKeys_ = keys;
    }
    return readings_;
}

/// True when the step was consumed.
bool VanokaInputController::apply(TypingStep&& step, TextInputClient& client) {
    apply(std::move(step.outcome.effect), client);
    if (step.lesson && suggestions_ && suggestions_->store)
        teach(*suggestions_->store, *step.lesson);
    return step.outcome.isConsumed;
}

void VanokaInputController::apply(TypingEffect&& effect, TextInputClient& client) {
    switch (effect.kind) {
    case TypingEffect::Kind::none:
        break;
    case TypingEffect::Kind::mark: {
        const auto caret = static_cast<std::int64_t>(text::utf16Length(effect.text));
        client.setMarkedText({std::move(effect.text)}, {caret, 0}, noReplacement);
        break;
    }
    case TypingEffect::Kind::insert:
        client.insertText(effect.text, noReplacement);
        break;
    }
}

} // namespace vanoka
