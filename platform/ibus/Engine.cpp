#include "Engine.h"

#include <vector>

using vanoka::ibus::InputContext;

struct VanokaEngine {
    IBusEngine parent;
    InputContext* context;
};

struct VanokaEngineClass {
    IBusEngineClass parent;
};

G_DEFINE_TYPE(VanokaEngine, vanoka_engine, IBUS_TYPE_ENGINE)

namespace {

std::vector<InputContext*>& contexts() {
    static std::vector<InputContext*> all;
    return all;
}

/// Null between the making of the object and of its context, and after its end.
InputContext* contextOf(IBusEngine* engine) {
    return reinterpret_cast<VanokaEngine*>(engine)->context;
}

/// The function of an engine's class that calls `operation` with its arguments.
template <auto operation, class... Arguments>
void handOn(IBusEngine* engine, Arguments... arguments) {
    if (InputContext* context = contextOf(engine))
        (context->*operation)(arguments...);
}

gboolean processKeyEvent(IBusEngine* engine, guint keysym, guint keyCode, guint state) {
    InputContext* context = contextOf(engine);
    return context && context->processKeyEvent(keysym, keyCode, state);
}

void focusIn(IBusEngine* engine) {
    if (InputContext* context = contextOf(engine))
        context->focusIn();
}

void focusInWithClient(IBusEngine* engine, const gchar* field, const gchar* client) {
    if (InputContext* context = contextOf(engine))
        context->focusIn(field, client ? client : "");
}

void focusOut(IBusEngine* engine) {
    if (InputContext* context = contextOf(engine))
        context->focusOut();
}

void focusOutWithClient(IBusEngine* engine, const gchar* field) {
    if (InputContext* context = contextOf(engine))
        context->focusOut(field);
}

void setContentType(IBusEngine* engine, guint purpose, guint hints) {
    if (InputContext* context = contextOf(engine))
        context->setContentType(purpose, hints);
}

void activateProperty(IBusEngine* engine, const gchar* name, guint) {
    if (InputContext* context = contextOf(engine))
        context->activateProperty(name);
}

void clickCandidate(IBusEngine* engine, guint row, guint, guint) {
    if (InputContext* context = contextOf(engine))
        context->clickCandidate(row);
}

void finalize(GObject* object) {
    InputContext*& context = reinterpret_cast<VanokaEngine*>(object)->context;
    std::erase(contexts(), context);
    delete context;
    context = nullptr;
    G_OBJECT_CLASS(vanoka_engine_parent_class)->finalize(object);
}

} // namespace

static void vanoka_engine_class_init(VanokaEngineClass* engineClass) {
    G_OBJECT_CLASS(engineClass)->finalize = finalize;
    IBusEngineClass& calls = engineClass->parent;
    calls.process_key_event = processKeyEvent;
    calls.focus_in = focusIn;
    calls.focus_in_id = focusInWithClient;
    calls.focus_out = focusOut;
    calls.focus_out_id = focusOutWithClient;
    calls.enable = handOn<&InputContext::enable>;
    calls.disable = handOn<&InputContext::disable>;
    calls.reset = handOn<&InputContext::reset>;
    calls.set_content_type = setContentType;
    calls.property_activate = activateProperty;
    calls.page_up = handOn<&InputContext::pageUp>;
    calls.page_down = handOn<&InputContext::pageDown>;
    calls.cursor_up = handOn<&InputContext::cursorUp>;
    calls.cursor_down = handOn<&InputContext::cursorDown>;
    calls.candidate_clicked = clickCandidate;
}

static void vanoka_engine_init(VanokaEngine* engine) {
    engine->context = nullptr;
}

namespace vanoka::ibus {

IBusEngine* newEngine(const char* name, const char* path, GDBusConnection* connection,
                      EngineEnvironment& environment) {
    auto* engine = static_cast<VanokaEngine*>(g_object_new(vanoka_engine_get_type(), "engine-name", name,
                                                           "object-path", path, "connection", connection,
                                                           "has-focus-id", TRUE, nullptr));
    IBusEngine* parent = IBUS_ENGINE(engine);
    engine->context = new InputContext(*parent, environment);
    contexts().push_back(engine->context);
    return parent;
}

void showSuggestionsInAllEngines() {
    for (InputContext* context : contexts())
        context->showSuggestions();
}

void keepAllEngines() {
    for (InputContext* context : contexts())
        context->stays();
}

void tellFocus(std::string_view field) {
    for (InputContext* context : contexts())
        context->hasFocus(field);
}

void finishAllEngines() {
    for (InputContext* context : contexts())
        context->finish();
}

} // namespace vanoka::ibus
