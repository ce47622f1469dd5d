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
    KeyOutcome outcome = typing_.press(*event, settings_.transliterator());
    apply(std::move(outcome.effect), *client);
    return outcome.isConsumed;
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

void VanokaInputController::apply(TypingEffect effect, TextInputClient& client) {
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
