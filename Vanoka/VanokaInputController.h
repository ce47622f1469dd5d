#pragma once

#include "CandidateTyping.h"
#include "Suggestions.h"
#include "TextInputClient.h"
#include "settings/SinglishSettings.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vanoka {

/// The shell over `CandidateTyping`: takes the key events of one client and hands their effects to it.
///
/// One controller for each client. Losing the client puts the composition in, so that nothing typed is lost.
/// It is over before the client is called, so a client that calls back cannot commit it twice. Settings and
/// clients must outlive the calls they are passed to.
///
/// Suggestions are a front end's choice. One that draws a line of candidates
///
///  1. calls `setSuggestions` once, and `setFieldPrivacy` whenever it hears what a field is;
///  2. after each call of `handle`, `commitComposition`, `activateServer`, `deactivateServer`,
///     `forgetComposition`, and of those for candidates, sends what the client was told on its way and then
///     calls `updateCandidates`; where that returns true, it draws `candidates()` anew, or hides the line
///     that is not shown any more. A front end that is asked for a key's answer may give it first and call
///     `updateCandidates` when nothing else is to be done: no key is read differently because of it.
///  3. hands clicks to `chooseCandidate`, and what a panel's own arrows say to `moveHighlight`. Keys move the
///     highlight in `handle`.
///
/// One that calls none of these has none, and no key costs more.
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
    /// What was marked: the highlighted candidate where the highlight was moved.
    std::string forgetComposition() { return typing_.forget(); }

    /// What to suggest from, which must outlive this controller or be replaced; null, as at first: nothing.
    void setSuggestions(Suggestions* suggestions) noexcept { suggestions_ = suggestions; }
    /// What the field that has the focus asks for; in force from its next key on.
    void setFieldPrivacy(FieldPrivacy privacy) noexcept { privacy_ = privacy; }

    /// Finds the candidates of the newest key if they are missing (see `candidatesFor`); true when the line
    /// is another one than after the last call.
    bool updateCandidates();

    /// The line of candidates as it is to be shown; `highlighted` is its marked row. Not shown when there is
    /// nothing to choose from. Valid until the next call of this controller.
    const CandidateLine& candidates() const noexcept { return typing_.line(); }

    /// Puts the row in, as a click on it does; false, and nothing done, where there is none, or the line is
    /// that of an older key.
    bool chooseCandidate(std::size_t row, TextInputClient* client);
    /// Moves the highlight down, or up where `rows` is negative, and round at the ends; false, and nothing
    /// done, where no line is shown.
    bool moveHighlight(std::ptrdiff_t rows, TextInputClient* client);

    const SinglishComposer& composer() const noexcept { return typing_.composer(); }

private:
    bool isOwn(const TextInputClient& client) const;
    bool isSuggesting() const;
    bool isLearning() const;
    void adoptSuggestions();
    void findCandidates();
    const LetterReadings& readings();
    bool apply(TypingStep&& step, TextInputClient& client);
    static void apply(TypingEffect&& effect, TextInputClient& client);

    std::optional<std::string> ownBundleIdentifier_;
    SinglishSettings& settings_;
    CandidateTyping typing_;
    Suggestions* suggestions_ = nullptr;
    FieldPrivacy privacy_ = FieldPrivacy::open;
    LetterReadings readings_; ///< of the keys that the user had added then:
    std::vector<SinglishCustomization::AddedKey> readKeys_;
    CandidateLine told_; ///< the line when a change of it was told last
};

} // namespace vanoka
