#include "VanokaInputController.h"

#include "text/Category.h"
#include "text/Utf8.h"

#include <utility>

namespace vanoka {

namespace {

constexpr std::uint64_t shortcutModifiers = KeyEvent::control | KeyEvent::option | KeyEvent::command;

bool isFunctionKey(char32_t scalar) noexcept {
    return scalar >= 0xF700 && scalar <= 0xF8FF;
}

/// True when no scalar of `characters` is a control or format character, a function key or ill-formed.
bool isPrintable(std::string_view characters) noexcept {
    for (const text::Scalar& scalar : text::Scalars(characters))
        if (!scalar.wellFormed || text::isControlOrFormat(scalar.value) || isFunctionKey(scalar.value))
            return false;
    return true;
}

} // namespace

VanokaInputController::VanokaInputController(std::optional<std::string> ownBundleIdentifier,
                                             SinglishSettings& settings)
    : ownBundleIdentifier_(std::move(ownBundleIdentifier)),
      settings_(settings),
      composer_(SinglishTransliterator::standard()) {}

bool VanokaInputController::handle(const KeyEvent* event, TextInputClient* client) {
    if (!event || event->type != KeyEvent::keyDown || !client || isOwn(*client))
        return false;
    composer_.setTransliterator(settings_.transliterator());
    if (event->modifierFlags & shortcutModifiers) {
        commit(*client);
        return false;
    }
    switch (event->keyCode) {
    case KeyEvent::space:
        return handleSpace(*client);
    case KeyEvent::escape:
        return handleEscape(*client);
    case KeyEvent::deleteBackward:
        return handleDelete(*client);
    default:
        return handleCharacters(event->characters.value_or(""), *client);
    }
}

void VanokaInputController::commitComposition(TextInputClient* client) {
    if (client)
        commit(*client);
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

bool VanokaInputController::handleSpace(TextInputClient& client) {
    if (!composer_.isComposing())
        return false;
    client.insertText(composer_.commit() + " ", noReplacement);
    return true;
}

bool VanokaInputController::handleEscape(TextInputClient& client) {
    if (!composer_.isComposing())
        return false;
    client.insertText(composer_.commitRaw(), noReplacement);
    return true;
}

bool VanokaInputController::handleDelete(TextInputClient& client) {
    if (!composer_.deleteBackward())
        return false;
    showComposition(client);
    return true;
}

bool VanokaInputController::handleCharacters(std::string_view characters, TextInputClient& client) {
    if (SinglishComposer::isComposable(characters)) {
        composer_.insert(characters);
        showComposition(client);
        return true;
    }
    if (!composer_.isComposing())
        return false;
    if (characters.empty() || !isPrintable(characters)) {
        commit(client);
        return false;
    }
    client.insertText(composer_.commit().append(characters), noReplacement);
    return true;
}

void VanokaInputController::commit(TextInputClient& client) {
    if (composer_.isComposing())
        client.insertText(composer_.commit(), noReplacement);
}

void VanokaInputController::showComposition(TextInputClient& client) const {
    const MarkedText marked = {composer_.preview()};
    const auto caret = static_cast<std::int64_t>(text::utf16Length(marked.text));
    client.setMarkedText(marked, {caret, 0}, noReplacement);
}

} // namespace vanoka
