#include "Fcitx5Field.h"

#include "Fcitx5Daemon.h"
#include "Fcitx5Panel.h"
#include "Keysym.h"
#include "Keysyms.h"
#include "VanokaInputController.h"
#include "text/Utf8.h"

#include <gtest/gtest.h>
#include <memory>

namespace vanoka::test {

namespace {

constexpr const char* interface = "org.fcitx.Fcitx.InputContext1";
constexpr TextRange noReplacement = VanokaInputController::noReplacement;
constexpr gint32 underline = 1 << 3;
constexpr gint32 notPutIn = 1 << 5;

} // namespace

Fcitx5Field::Fcitx5Field(const std::string& program, std::uint64_t capabilities) {
    const Fcitx5Daemon& daemon = Fcitx5Daemon::shared();
    GVariantBuilder builder;
    g_variant_builder_init(&builder, G_VARIANT_TYPE("a(ss)"));
    g_variant_builder_add(&builder, "(ss)", "program", program.c_str());
    GVariant* answer = daemon.call("/org/freedesktop/portal/inputmethod", "org.fcitx.Fcitx.InputMethod1",
                                   "CreateInputContext", g_variant_new("(a(ss))", &builder));
    const gchar* path = nullptr;
    g_variant_get_child(answer, 0, "&o", &path);
    path_ = path;
    g_variant_unref(answer);
    subscription_ = g_dbus_connection_signal_subscribe(
        daemon.connection(), nullptr, interface, nullptr, path_.c_str(), nullptr, G_DBUS_SIGNAL_FLAGS_NONE,
        [](GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar* name, GVariant* arguments,
           gpointer field) { static_cast<Fcitx5Field*>(field)->onSignal(name, arguments); },
        this, nullptr);
    tell(capabilities);
    focusIn();
}

Fcitx5Field::~Fcitx5Field() {
    g_dbus_connection_signal_unsubscribe(Fcitx5Daemon::shared().connection(), subscription_);
    call("DestroyIC");
}

void Fcitx5Field::press(const KeyEvent& event) {
    const X11Key key = x11Key(event);
    if (!process(key.keysym, key.state, false))
        field().apply(event);
    process(key.keysym, key.state, true);
}

void Fcitx5Field::press(std::uint32_t keysym, std::uint32_t state) {
    const KeyEvent event = Keysym::keyEvent(keysym, state, keysym < 0x100 ? keysym : 0);
    const bool isRelease = (state & Keysym::release) != 0;
    if (!process(keysym, state & ~Keysym::release, isRelease) && event.type == KeyEvent::keyDown)
        field().apply(event);
}

void Fcitx5Field::askForComposition() {
    // A field that is clicked shows that the word is in: the framework's modules leave it to the focus.
    leaveAndReturn();
}

void Fcitx5Field::leaveAndReturn() {
    focusOut();
    focusIn();
}

void Fcitx5Field::chooseCandidate(std::size_t row) {
    EXPECT_TRUE(waitUntil([&] {
        Fcitx5Panel::shared().click(row); // which does nothing before the line is there, and after it
        g_usleep(1000);
        return field().marked().empty();
    })) << "row "
        << row << " is not taken";
}

void Fcitx5Field::tellPlace(int x, int y, int width, int height) {
    call("SetCursorRect", g_variant_new("(iiii)", x, y, width, height));
}

void Fcitx5Field::pressAtOnce(const KeyEvent& event) {
    struct Pressed {
        Fcitx5Field* field;
        KeyEvent event;
    };
    const X11Key key = x11Key(event);
    g_dbus_connection_call(
        Fcitx5Daemon::shared().connection(), "org.fcitx.Fcitx5", path_.c_str(), interface, "ProcessKeyEvent",
        g_variant_new("(uuubu)", key.keysym, 0U, key.state, FALSE, 0U), nullptr, G_DBUS_CALL_FLAGS_NONE, -1,
        nullptr,
        [](GObject* connection, GAsyncResult* result, gpointer data) {
            const std::unique_ptr<Pressed> pressed(static_cast<Pressed*>(data));
            ++pressed->field->finished_;
            GVariant* answer = g_dbus_connection_call_finish(G_DBUS_CONNECTION(connection), result, nullptr);
            gboolean isConsumed = FALSE;
            if (answer)
                g_variant_get(answer, "(b)", &isConsumed);
            g_clear_pointer(&answer, g_variant_unref);
            if (!isConsumed)
                pressed->field->field().apply(pressed->event);
        },
        new Pressed{this, event});
}

bool Fcitx5Field::waitUntilFinished(std::size_t count) {
    return finished_ >= count || waitUntil([&] { return finished_ >= count; });
}

void Fcitx5Field::focusIn() {
    call("FocusIn");
}

void Fcitx5Field::focusOut() {
    call("FocusOut");
}

void Fcitx5Field::reset() {
    call("Reset");
}

void Fcitx5Field::clickMarkedText() {
    constexpr guint32 withTheLeftButton = 0;
    call("InvokeAction", g_variant_new("(ui)", withTheLeftButton, 0));
}

void Fcitx5Field::tell(std::uint64_t capabilities) {
    call("SetCapability", g_variant_new("(t)", capabilities));
}

bool Fcitx5Field::process(std::uint32_t keysym, std::uint32_t state, bool isRelease) {
    GVariant* answer =
        Fcitx5Daemon::shared().call(path_.c_str(), interface, "ProcessKeyEvent",
                                    g_variant_new("(uuubu)", keysym, 0U, state, gboolean(isRelease), 0U));
    gboolean isConsumed = FALSE;
    if (answer)
        g_variant_get(answer, "(b)", &isConsumed);
    g_clear_pointer(&answer, g_variant_unref);
    return isConsumed != FALSE;
}

void Fcitx5Field::call(const char* method, GVariant* arguments) {
    GVariant* answer = Fcitx5Daemon::shared().call(path_.c_str(), interface, method, arguments);
    EXPECT_NE(answer, nullptr) << method;
    g_clear_pointer(&answer, g_variant_unref);
}

void Fcitx5Field::onSignal(const std::string& name, GVariant* arguments) {
    if (name == "UpdateFormattedPreedit")
        return onPreedit(arguments);
    if (name != "CommitString")
        return;
    const gchar* text = nullptr;
    g_variant_get(arguments, "(&s)", &text);
    replaced_ = field().marked();
    wouldHavePutIn_ = mayPutIn_;
    field().insertText(text, noReplacement);
}

void Fcitx5Field::onPreedit(GVariant* arguments) {
    GVariantIter* parts = nullptr;
    gint32 caret = 0, format = 0;
    g_variant_get(arguments, "(a(si)i)", &parts, &caret);
    std::string marked;
    const gchar* part = nullptr;
    mayPutIn_ = false;
    while (g_variant_iter_loop(parts, "(&si)", &part, &format)) {
        marked += part;
        EXPECT_EQ(format & underline, underline);
        mayPutIn_ = mayPutIn_ || (format & notPutIn) == 0;
    }
    g_variant_iter_free(parts);
    if (!marked.empty()) {
        EXPECT_EQ(caret, static_cast<gint32>(marked.size())) << "the caret is after the marked text";
    }
    field().setMarkedText({marked}, {static_cast<std::int64_t>(text::utf16Length(marked)), 0}, noReplacement);
}

} // namespace vanoka::test
