#pragma once

#include "CommitPolicy.h"
#include "TextInputClient.h"

#include <ibus.h>
#include <optional>
#include <string>

namespace vanoka::ibus {

/// The client behind an engine: inserted text is committed, marked text is the preedit.
class EngineClient final : public TextInputClient {
public:
    /// The engine must outlive the client.
    explicit EngineClient(IBusEngine& engine) : engine_(engine) {}
    EngineClient(const EngineClient&) = delete;
    EngineClient& operator=(const EngineClient&) = delete;
    ~EngineClient() override { cancelHiding(); }

    /// The name of the client as the daemon tells it: "module:program", or a module alone.
    void setName(std::string name) { name_ = std::move(name); }
    const std::string& name() const noexcept { return name_; }
    /// How the client gets its texts.
    void setPolicy(const CommitPolicy& policy) { policy_ = policy; }

    /// Takes the marked text away.
    void hideMarkedText();
    /// Others have taken it away.
    void forgetMarkedText();
    /// Takes away at once what was put in and else is taken away after the answer to the key: before the
    /// client gets a key itself.
    void finishHiding();

    /// The program; absent where the module does not name it.
    std::optional<std::string> bundleIdentifier() const override;
    void insertText(std::string_view text, TextRange replacementRange) override;
    void setMarkedText(const MarkedText& marked, TextRange selectionRange,
                       TextRange replacementRange) override;

private:
    void showMarkedText(IBusPreeditFocusMode mode);
    void showForTheLastTime();
    void hideAfterTheAnswer();
    void cancelHiding();

    IBusEngine& engine_;
    std::string name_;
    CommitPolicy policy_;
    MarkedText marked_; ///< what is shown
    guint hiding_ = 0;  ///< the source that takes away what was put in; 0 for none
};

} // namespace vanoka::ibus
