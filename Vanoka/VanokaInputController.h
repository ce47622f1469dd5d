#pragma once

#include "TextInputClient.h"
#include "settings/SinglishSettings.h"
#include "typing/Typing.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vanoka {

/// The shell over `Typing`: takes the key events of one client and hands their effects to it.
///
/// One controller for each client. Losing the client puts the composition in, so that nothing typed is lost.
/// It is over before the client is called, so a client that calls back cannot commit it twice. Settings and
/// clients must outlive the calls they are passed to.
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

    /// Ends the composition whose text others have put in, or taken away, and returns the text.
    std::string forgetComposition() { return typing_.forget(); }

    const SinglishComposer& composer() const noexcept { return typing_.composer(); }

private:
    bool isOwn(const TextInputClient& client) const;
    static void apply(TypingEffect effect, TextInputClient& client);

    std::optional<std::string> ownBundleIdentifier_;
    SinglishSettings& settings_;
    Typing typing_;
};

} // namespace vanoka
