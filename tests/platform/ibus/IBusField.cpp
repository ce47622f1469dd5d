#include "IBusField.h"

#include "IBusDaemon.h"
#include "IBusPanel.h"
#include "Keysym.h"
#include "Keysyms.h"
#include "VanokaInputController.h"
#include "text/Utf8.h"

#include <gtest/gtest.h>

namespace vanoka::test {

namespace {

constexpr guint someKeyCode = 30; // of a key that is there; no field here looks which
constexpr TextRange noReplacement = VanokaInputController::noReplacement;

void onCommit(IBusInputContext*, IBusText* text, gpointer field) {
    static_cast<IBusField*>(field)->field().insertText(ibus_text_get_text(text), noReplacement);
}

void onForward(IBusInputContext*, guint keysym, guint, guint state, gpointer field) {
    const KeyEvent event = Keysym::keyEvent(keysym, state, ibus_keyval_to_unicode(keysym));
    if (event.type == KeyEvent::keyDown)
        static_cast<IBusField*>(field)->field().apply(event);
}

bool isUnderlined(IBusText* text) {
    const IBusAttribute* attribute = ibus_attr_list_get(ibus_text_get_attributes(text), 0);
    return attribute && attribute->type == IBUS_ATTR_TYPE_UNDERLINE &&
           attribute->value == IBUS_ATTR_UNDERLINE_SINGLE && attribute->start_index == 0 &&
           attribute->end_index == ibus_text_get_length(text);
}

} // namespace

IBusField::IBusField(const std::string& name, Commits commits, guint capabilities)
    : context_(ibus_bus_create_input_context(IBusDaemon::shared().bus(), name.c_str())), commits_(commits) {
    g_signal_connect(context_, "commit-text", G_CALLBACK(onCommit), this);
    g_signal_connect(context_, "forward-key-event", G_CALLBACK(onForward), this);
    g_signal_connect(context_, "register-properties",
                     G_CALLBACK(+[](IBusInputContext*, IBusPropList* menu, gpointer field) {
                         g_set_object(&static_cast<IBusField*>(field)->menu_, menu);
                     }),
                     this);
    g_signal_connect(
        context_, "update-preedit-text",
        G_CALLBACK(+[](IBusInputContext*, IBusText* text, guint caret, gboolean isVisible, gpointer field) {
            static_cast<IBusField*>(field)->onPreedit(text, caret, isVisible, IBUS_ENGINE_PREEDIT_CLEAR);
        }),
        this);
    g_signal_connect(context_, "update-preedit-text-with-mode",
                     G_CALLBACK(+[](IBusInputContext*, IBusText* text, guint caret, gboolean isVisible,
                                    guint mode, gpointer field) {
                         static_cast<IBusField*>(field)->onPreedit(text, caret, isVisible, mode);
                     }),
                     this);
    g_signal_connect(context_, "hide-preedit-text", G_CALLBACK(+[](IBusInputContext*, gpointer field) {
                         static_cast<IBusField*>(field)->field().setMarkedText({}, {}, noReplacement);
                     }),
                     this);
    ibus_input_context_set_capabilities(context_, capabilities);
    if (commits == Commits::field)
        ibus_input_context_set_client_commit_preedit(context_, TRUE);
    focusIn();
}

IBusField::~IBusField() {
    g_signal_handlers_disconnect_by_data(context_, this);
    ibus_proxy_destroy(IBUS_PROXY(context_));
    g_object_unref(context_);
    g_clear_object(&menu_);
}

void IBusField::press(const KeyEvent& event) {
    const X11Key key = x11Key(event);
    const bool isConsumed =
        ibus_input_context_process_key_event(context_, key.keysym, someKeyCode, key.state) != FALSE;
    settle();
    if (!isConsumed)
        field().apply(event);
    press(key.keysym, key.state | IBUS_RELEASE_MASK);
}

void IBusField::press(std::uint32_t keysym, std::uint32_t state) {
    const bool isConsumed =
        ibus_input_context_process_key_event(context_, keysym, someKeyCode, state) != FALSE;
    settle();
    if (!isConsumed)
        onForward(context_, keysym, 0, state, this);
}

void IBusField::pressAtOnce(const KeyEvent& event) {
    const X11Key key = x11Key(event);
    struct Pressed {
        IBusField* field;
        KeyEvent event;
    };
    ibus_input_context_process_key_event_async(
        context_, key.keysym, someKeyCode, key.state, -1, nullptr,
        [](GObject* context, GAsyncResult* result, gpointer data) {
            const std::unique_ptr<Pressed> pressed(static_cast<Pressed*>(data));
            ++pressed->field->finished_;
            if (!ibus_input_context_process_key_event_async_finish(IBUS_INPUT_CONTEXT(context), result,
                                                                   nullptr))
                pressed->field->field().apply(pressed->event);
        },
        new Pressed{this, event});
}

bool IBusField::waitUntilFinished(std::size_t count) {
    return finished_ >= count || waitUntil([&] { return finished_ >= count; });
}

void IBusField::askForComposition() {
    commitMarkedText();
    ibus_input_context_reset(context_);
    settleDaemon();
}

void IBusField::leaveAndReturn() {
    focusOut();
    focusIn();
}

void IBusField::chooseCandidate(std::size_t row) {
    EXPECT_TRUE(waitUntil([&] {
        IBusPanel::shared().click(row); // which does nothing before the line is there, and after it
        settleDaemon();
        return field().marked().empty();
    })) << "row "
        << row << " is not taken";
}

void IBusField::focusIn() {
    ibus_input_context_focus_in(context_);
    settleDaemon();
}

void IBusField::focusOut() {
    commitMarkedText();
    ibus_input_context_focus_out(context_);
    settleDaemon();
}

void IBusField::leaveFor(IBusField& other) {
    commitMarkedText();
    ibus_input_context_focus_out(context_);
    other.focusIn();
    other.settleDaemon();
}

bool IBusField::choose(const char* engine) {
    if (chosen() == engine)
        return true; // choosing it again would make another engine object
    // The answer comes when the engine is in force. Newer daemons take no engine for one field alone.
    ibus_bus_set_global_engine(IBusDaemon::shared().bus(), engine);
    settle();
    return chosen() == engine;
}

std::string IBusField::chosen() const {
    IBusEngineDesc* description = ibus_input_context_get_engine(context_);
    std::string name = description ? ibus_engine_desc_get_name(description) : "";
    g_clear_object(&description);
    return name;
}

void IBusField::setPurpose(guint purpose, guint hints) {
    ibus_input_context_set_content_type(context_, purpose, hints);
    settleDaemon();
}

/// Waits until the daemon has done what it was asked to: an answer comes after all that it sent before.
void IBusField::settleDaemon() const {
    chosen();
    settle();
}

void IBusField::commitMarkedText() {
    const std::string marked = field().marked();
    if (commits_ == Commits::field && !marked.empty() && preeditMode_ == IBUS_ENGINE_PREEDIT_COMMIT)
        field().insertText(marked, noReplacement);
}

void IBusField::onPreedit(IBusText* text, guint caret, gboolean isVisible, guint mode) {
    preeditMode_ = mode;
    const std::string marked = isVisible ? ibus_text_get_text(text) : "";
    if (!marked.empty()) {
        EXPECT_EQ(caret, ibus_text_get_length(text)) << "the caret is after the marked text";
        const bool isShownForTheLastTime = mode == IBUS_ENGINE_PREEDIT_CLEAR && marked == field().marked();
        EXPECT_TRUE(isUnderlined(text) || isShownForTheLastTime);
    }
    const auto end = static_cast<std::int64_t>(text::utf16Length(marked));
    field().setMarkedText({marked}, {end, 0}, noReplacement);
}

} // namespace vanoka::test
