#pragma once

#include "CandidateTable.h"
#include "CommitPolicy.h"
#include "ComposeSequence.h"
#include "DesktopContext.h"
#include "DesktopSuggestions.h"
#include "DroppedTexts.h"
#include "EngineClient.h"

#include <functional>
#include <ibus.h>
#include <string>
#include <vector>

namespace vanoka::ibus {

/// A key as the daemon tells it.
struct PressedKey {
    guint keysym, keyCode, state;
};

/// What all engines of the process share.
struct EngineEnvironment {
    SinglishSettings& settings;
    FileWatch& storedSettings; ///< the file behind them
    DesktopSuggestions& suggestions;
    Versions versions;
    std::function<void(VanokaInputController::MenuAction)> activate; ///< of an entry of the menu
    std::function<void()> suggestionsChanged;                        ///< the user's choices, that is
    /// Asks the daemon for another engine in place of the one that has the focus; false when it was asked
    /// before. The one in whose place none comes hears `InputContext::stays`.
    std::function<bool()> replaceEngine;
    /// Asks the daemon which field has the focus; the engine hears `InputContext::hasFocus`.
    std::function<void()> askForFocus;
    std::vector<PressedKey> keysForReplacement; ///< pressed since an engine was asked for
    DroppedTexts::Waiting droppedTexts;
};

/// One engine object of the daemon and the composition in it. The daemon moves the object from client to
/// client; a composition never moves with it, since losing the client ends it.
///
/// Each operation is the daemon's call of that name. Both the engine and the environment must outlive it.
class InputContext {
public:
    InputContext(IBusEngine& engine, EngineEnvironment& environment);
    InputContext(const InputContext&) = delete;
    InputContext& operator=(const InputContext&) = delete;
    ~InputContext() { cancelUpdate(); }

    /// True when the key is consumed.
    bool processKeyEvent(guint keysym, guint keyCode, guint state);
    void enable();
    void disable();
    /// In what follows `field` is the path of the client's field on the bus, and `client` the client's name.
    /// A daemon gives the first engine that it makes the focus before it has heard that this wants to know
    /// them. The next one is told, so it has to make another, which gets the keys that are pressed meanwhile.
    void focusIn();
    void focusIn(const std::string& field, std::string client);
    void focusOut();
    void focusOut(std::string field);
    /// The daemon has answered that this field has the focus.
    void hasFocus(std::string_view field);
    void reset();
    void setContentType(guint purpose, guint hints);
    void activateProperty(std::string_view name);

    void pageUp() { moveHighlight(-1); }
    void pageDown() { moveHighlight(1); }
    void cursorUp() { moveHighlight(-1); }
    void cursorDown() { moveHighlight(1); }
    void clickCandidate(guint row);

    /// The daemon makes no other engine in its place any more.
    void stays();
    /// Suggestions are other ones than before, or the choices in the menu are.
    void showSuggestions();
    /// The process is about to end.
    void finish();

private:
    bool takesNoInput() const noexcept;
    bool answers(guint keysym, guint keyCode, guint state);
    bool takes(guint keysym, guint state);
    SequenceStep followSequence(const DesktopKey& key);
    void commit();
    std::string forget();
    void becomesActive();
    void putDroppedTextIn();
    void takeKeysForReplacement();
    void updatePolicy();
    void showMenu();
    void moveHighlight(std::ptrdiff_t rows);
    void updateCandidates();
    void updateCandidatesLater();
    void forgetCandidates();
    void cancelUpdate();

    IBusEngine& engine_;
    EngineEnvironment& environment_;
    EngineClient client_;
    DesktopContext desktop_;
    CandidateTable table_;
    CommitPolicy policy_;
    DroppedTexts droppedTexts_;
    std::string field_; ///< that has the focus; empty where none has, or it is not told
    ComposeSequence sequence_;
    guint purpose_ = IBUS_INPUT_PURPOSE_FREE_FORM;
    bool isBeingReplaced_ = false;
    guint update_ = 0; ///< the source that finds and shows candidates; 0 for none
};

} // namespace vanoka::ibus
