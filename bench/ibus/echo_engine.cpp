// The least that an engine can be: it shows the keys that it is sent as they are, and puts them in at a
// space. As "echo-table" it also shows the same six candidates after every key.

#include <ibus.h>
#include <string>
#include <string_view>

struct EchoEngine {
    IBusEngine parent;
    std::string* keys;
};

struct EchoEngineClass {
    IBusEngineClass parent;
};

G_DEFINE_TYPE(EchoEngine, echo_engine, IBUS_TYPE_ENGINE)

namespace {

gboolean showTable(gpointer engine) {
    constexpr guint rows = 6;
    IBusLookupTable* table = ibus_lookup_table_new(rows, 0, TRUE, TRUE);
    for (guint row = 0; row < rows; ++row)
        ibus_lookup_table_append_candidate(table, ibus_text_new_from_static_string("candidate"));
    ibus_engine_update_lookup_table(IBUS_ENGINE(engine), table, TRUE);
    return G_SOURCE_REMOVE;
}

gboolean processKeyEvent(IBusEngine* engine, guint keysym, guint, guint state) {
    std::string& keys = *reinterpret_cast<EchoEngine*>(engine)->keys;
    if (state & IBUS_RELEASE_MASK)
        return FALSE;
    if (keysym == IBUS_KEY_space) {
        ibus_engine_update_preedit_text_with_mode(engine, ibus_text_new_from_static_string(""), 0, FALSE,
                                                  IBUS_ENGINE_PREEDIT_CLEAR);
        ibus_engine_commit_text(engine, ibus_text_new_from_string((keys + " ").c_str()));
        keys.clear();
        return TRUE;
    }
    keys += static_cast<char>(keysym);
    IBusText* text = ibus_text_new_from_string(keys.c_str());
    const guint length = ibus_text_get_length(text);
    ibus_text_append_attribute(text, IBUS_ATTR_TYPE_UNDERLINE, IBUS_ATTR_UNDERLINE_SINGLE, 0,
                               static_cast<gint>(length));
    ibus_engine_update_preedit_text_with_mode(engine, text, length, TRUE, IBUS_ENGINE_PREEDIT_COMMIT);
    if (std::string_view(ibus_engine_get_name(engine)) == "echo-table")
        g_idle_add_full(G_PRIORITY_DEFAULT_IDLE, showTable, g_object_ref(engine), g_object_unref);
    return TRUE;
}

void finalize(GObject* object) {
    delete reinterpret_cast<EchoEngine*>(object)->keys;
    G_OBJECT_CLASS(echo_engine_parent_class)->finalize(object);
}

} // namespace

static void echo_engine_class_init(EchoEngineClass* engineClass) {
    engineClass->parent.process_key_event = processKeyEvent;
    G_OBJECT_CLASS(engineClass)->finalize = finalize;
}

static void echo_engine_init(EchoEngine* engine) {
    engine->keys = new std::string;
}

int main() {
    ibus_init();
    IBusBus* bus = ibus_bus_new();
    if (!ibus_bus_is_connected(bus))
        return 1;
    g_signal_connect(bus, "disconnected", G_CALLBACK(ibus_quit), nullptr);
    IBusFactory* factory = ibus_factory_new(ibus_bus_get_connection(bus));
    for (const char* name : {"echo", "echo-table"})
        ibus_factory_add_engine(factory, name, echo_engine_get_type());
    ibus_bus_request_name(bus, "org.freedesktop.IBus.Echo", 0);
    ibus_main();
    return 0;
}
