#include "IBusStandIn.h"

#include "Fuzz.h"

#include <algorithm>

namespace vanoka::fuzz {

IBusStandIn& IBusStandIn::current() {
    static IBusStandIn standIn;
    return standIn;
}

guint IBusStandIn::putOff(int priority, GSourceFunc function, void* data) {
    putOff_.emplace(++lastId_, PutOff{priority, function, data});
    return lastId_;
}

void IBusStandIn::cancel(guint id) {
    expect(putOff_.erase(id) == 1, "what is cancelled was put off");
}

void IBusStandIn::doWhatWasPutOff(int priority) {
    for (;;) {
        const auto due = std::ranges::find_if(
            putOff_, [priority](const auto& each) { return each.second.priority <= priority; });
        if (due == putOff_.end())
            return;
        const auto [id, work] = *due;
        expect(work.function(work.data) == G_SOURCE_REMOVE, "it is done once");
        putOff_.erase(id); // it may have cancelled itself
    }
}

void IBusStandIn::reset() {
    expect(putOff_.empty(), "an engine that is gone has put nothing off");
    *this = {};
}

} // namespace vanoka::fuzz

namespace {

using vanoka::fuzz::IBusStandIn;

/// The text of an object that the caller gives away.
std::string taken(IBusText* text) {
    g_object_ref_sink(text);
    std::string copy = ibus_text_get_text(text);
    g_object_unref(text);
    return copy;
}

template <class Object>
void release(Object* object) {
    g_object_unref(g_object_ref_sink(object));
}

} // namespace

extern "C" {

guint g_idle_add_full(gint priority, GSourceFunc function, gpointer data, GDestroyNotify) {
    return IBusStandIn::current().putOff(priority, function, data);
}

gboolean g_source_remove(guint id) {
    IBusStandIn::current().cancel(id);
    return TRUE;
}

GDBusConnection* ibus_service_get_connection(IBusService*) {
    return nullptr;
}

gboolean g_dbus_connection_flush_sync(GDBusConnection*, GCancellable*, GError**) {
    return TRUE;
}

void ibus_engine_commit_text(IBusEngine*, IBusText* text) {
    IBusStandIn& standIn = IBusStandIn::current();
    standIn.preedit.isStale = true;
    standIn.commit(taken(text));
}

void ibus_engine_update_preedit_text_with_mode(IBusEngine*, IBusText* text, guint caret, gboolean isVisible,
                                               IBusPreeditFocusMode mode) {
    const guint length = ibus_text_get_length(text);
    vanoka::fuzz::expect(caret == length, "the caret stands at the end");
    const std::string shown = taken(text);
    IBusStandIn::current().preedit = {isVisible ? shown : "", mode == IBUS_ENGINE_PREEDIT_COMMIT};
}

void ibus_engine_hide_preedit_text(IBusEngine*) {
    IBusStandIn::current().preedit = {};
}

void ibus_engine_forward_key_event(IBusEngine*, guint keysym, guint, guint state) {
    IBusStandIn::current().forward(keysym, state);
}

void ibus_engine_update_lookup_table(IBusEngine*, IBusLookupTable* table, gboolean) {
    vanoka::CandidateLine line;
    line.highlighted = ibus_lookup_table_get_cursor_pos(table);
    for (guint row = 0; row < ibus_lookup_table_get_number_of_candidates(table); ++row)
        line.rows.push_back({ibus_text_get_text(ibus_lookup_table_get_candidate(table, row))});
    IBusStandIn::current().line = std::move(line);
    release(table);
}

void ibus_engine_hide_lookup_table(IBusEngine*) {
    IBusStandIn::current().line = {};
}

void ibus_engine_update_auxiliary_text(IBusEngine*, IBusText* text, gboolean) {
    release(text);
}

void ibus_engine_hide_auxiliary_text(IBusEngine*) {}

void ibus_engine_register_properties(IBusEngine*, IBusPropList* properties) {
    release(properties);
}

void ibus_engine_update_property(IBusEngine*, IBusProperty* property) {
    release(property);
}

} // extern "C"
