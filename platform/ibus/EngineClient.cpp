#include "EngineClient.h"

#include <utility>

namespace vanoka::ibus {

std::optional<std::string> EngineClient::bundleIdentifier() const {
    const std::size_t colon = name_.find(':');
    return colon == std::string::npos ? std::nullopt : std::optional(name_.substr(colon + 1));
}

void EngineClient::insertText(std::string_view text, TextRange) {
    const std::string terminated(text);
    if (policy_.hidesFirst)
        hideMarkedText(); // or the client would put it in as well, if the text makes it move the focus
    else
        showForTheLastTime();
    ibus_engine_commit_text(&engine_, ibus_text_new_from_string(terminated.c_str()));
    if (!marked_.text.empty())
        hideAfterTheAnswer();
}

void EngineClient::setMarkedText(const MarkedText& marked, TextRange, TextRange) {
    if (marked.text.empty())
        return hideMarkedText();
    marked_ = marked;
    showMarkedText(policy_.frameworkCommits ? IBUS_ENGINE_PREEDIT_COMMIT : IBUS_ENGINE_PREEDIT_CLEAR);
}

void EngineClient::showMarkedText(IBusPreeditFocusMode mode) {
    if (marked_.text.empty())
        return;
    cancelHiding(); // what is shown now takes its place
    IBusText* text = ibus_text_new_from_string(marked_.text.c_str());
    const guint length = ibus_text_get_length(text);
    if (marked_.underline == MarkedText::Underline::single)
        ibus_text_append_attribute(text, IBUS_ATTR_TYPE_UNDERLINE, IBUS_ATTR_UNDERLINE_SINGLE, 0,
                                   static_cast<gint>(length));
    ibus_engine_update_preedit_text_with_mode(&engine_, text, length, TRUE, mode);
}

/// Left in place, where the text is going to replace it: a browser that sees it go takes the line away with
/// it, and puts the text into the line above. But from now on nobody may put it in. The key's answer waits
/// for this, and nobody sees it: it needs no underline.
void EngineClient::showForTheLastTime() {
    marked_.underline = MarkedText::Underline::none;
    showMarkedText(IBUS_ENGINE_PREEDIT_CLEAR);
}

void EngineClient::hideMarkedText() {
    if (marked_.text.empty())
        return;
    forgetMarkedText();
    ibus_engine_update_preedit_text_with_mode(&engine_, ibus_text_new_from_static_string(""), 0, FALSE,
                                              IBUS_ENGINE_PREEDIT_CLEAR);
}

void EngineClient::forgetMarkedText() {
    marked_ = {};
    cancelHiding();
}

/// The text stands in its place already and nobody will put it in, so that the key need not wait for this. It
/// happens before anything else that the daemon asks for.
void EngineClient::hideAfterTheAnswer() {
    forgetMarkedText();
    const auto hide = [](gpointer client) -> gboolean {
        static_cast<EngineClient*>(client)->finishHiding();
        return G_SOURCE_REMOVE;
    };
    hiding_ = g_idle_add_full(G_PRIORITY_HIGH, hide, this, nullptr);
}

void EngineClient::finishHiding() {
    if (hiding_ == 0)
        return;
    cancelHiding();
    ibus_engine_hide_preedit_text(&engine_);
}

void EngineClient::cancelHiding() {
    if (hiding_ != 0)
        g_source_remove(std::exchange(hiding_, 0));
}

} // namespace vanoka::ibus
