#pragma once

#include "KeyEvent.h"
#include "TextInputClient.h"
#include "settings/SinglishSettings.h"
#include "singlish/SinglishComposer.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vanoka {

/// Typing: turns the key events of one client into marked text and inserted text.
///
/// It is idle or composing. Idle, a Latin letter starts a composition and every other key is the client's.
/// Composing, the letters' Sinhala reading stands underlined in the client; letters and Delete change it, and
/// every other key ends it: Space and printable keys put the Sinhala text in with themselves after it, Escape
/// the Latin keys; Return, Tab, arrows and shortcuts put the Sinhala text in and then go to the client.
/// Losing the client puts the Sinhala text in, so that nothing typed is lost.
///
/// One controller for each client. The composition is empty before the client is called, so a client that
/// calls back cannot commit it twice. Settings and clients must outlive the calls they are passed to.
class VanokaInputController {
public:
    /// The controller of a process with this bundle identifier, which may be absent, over `settings`, which
    /// must outlive it. It starts with the built-in keys; the user's come with the first key event.
    explicit VanokaInputController(std::optional<std::string> ownBundleIdentifier,
                                   SinglishSettings& settings = SinglishSettings::shared());

    /// Key-down events only, as a mask of event types.
    static constexpr std::uint64_t recognizedEvents = 1ULL << KeyEvent::keyDown;

    /// Passed with every text: it replaces what is marked and nothing else. Both fields are not-found.
    static constexpr TextRange noReplacement = {TextRange::notFound, TextRange::notFound};

    /// Handles one event; true when it is consumed, false when the client shall handle it as if there were no
    /// input method. Either pointer may be null: no event, or a client that takes no text.
    bool handle(const KeyEvent* event, TextInputClient* client);

    /// The platform asks for the text now. Null: a sender that takes no text.
    void commitComposition(TextInputClient* client);
    /// The client is about to send keys: adopts settings that another process has stored.
    void activateServer();
    /// The client loses the input method: what is being composed is put in.
    void deactivateServer(TextInputClient* client);

    enum class MenuAction : std::uint8_t { showSettings, showAbout };

    struct MenuItem {
        std::string_view title;
        MenuAction action;
        std::string_view keyEquivalent; ///< no shortcut
        friend bool operator==(const MenuItem&, const MenuItem&) = default;
    };

    /// The input source's menu.
    static std::vector<MenuItem> menu();

    const SinglishComposer& composer() const noexcept { return composer_; }

private:
    bool isOwn(const TextInputClient& client) const;
    bool handleSpace(TextInputClient& client);
    bool handleEscape(TextInputClient& client);
    bool handleDelete(TextInputClient& client);
    bool handleCharacters(std::string_view characters, TextInputClient& client);
    void commit(TextInputClient& client);
    void showComposition(TextInputClient& client) const;

    std::optional<std::string> ownBundleIdentifier_;
    SinglishSettings& settings_;
    SinglishComposer composer_;
};

} // namespace vanoka
