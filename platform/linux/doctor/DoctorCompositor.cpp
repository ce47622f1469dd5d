#include "DoctorCompositor.h"

#include <array>
#include <cstdarg>
#include <cstring>
#include <memory>
#include <wayland-client.h>

namespace vanoka {

namespace {

// The part of the protocol input-method-unstable-v2 that is needed to ask whether a program has become the
// input method: the compositor tells a second one that it is unavailable. Debian has no package
// with its description.

constexpr std::uint32_t getInputMethod = 0, destroyManager = 1, destroyInputMethod = 6; // requests
constexpr int unavailable = 6;                                                          // an event

extern const wl_interface inputMethodInterface;

// The objects that the arguments are, null for other arguments; the library wants them without const.
std::array<const wl_interface*, 3> noObjects = {};
std::array<const wl_interface*, 2> objectsToGet = {&wl_seat_interface, &inputMethodInterface};

constexpr wl_message message(const char* name, const char* arguments = "") {
    return {name, arguments, noObjects.data()};
}

constexpr std::array inputMethodRequests = {message("commit_string", "s"),
                                            message("set_preedit_string", "sii"),
                                            message("delete_surrounding_text", "uu"),
                                            message("commit", "u"),
                                            message("get_input_popup_surface", "no"),
                                            message("grab_keyboard", "n"),
                                            message("destroy")};
constexpr std::array inputMethodEvents = {message("activate"),
                                          message("deactivate"),
                                          message("surrounding_text", "suu"),
                                          message("text_change_cause", "u"),
                                          message("content_type", "uu"),
                                          message("done"),
                                          message("unavailable")};
constexpr std::array managerRequests = {wl_message{"get_input_method", "on", objectsToGet.data()},
                                        message("destroy")};

const wl_interface inputMethodInterface = {"zwp_input_method_v2",      1,
                                           inputMethodRequests.size(), inputMethodRequests.data(),
                                           inputMethodEvents.size(),   inputMethodEvents.data()};
const wl_interface managerInterface = {Compositor::inputMethods, 1, managerRequests.size(),
                                       managerRequests.data(),   0, nullptr};

struct Disconnect {
    void operator()(wl_display* display) const { wl_display_disconnect(display); }
};

struct Globals {
    Compositor compositor;
    std::uint32_t seat = 0, manager = 0; ///< their numbers; 0 for none
};

void onGlobal(void* data, wl_registry*, std::uint32_t number, const char* interface, std::uint32_t) {
    auto& globals = *static_cast<Globals*>(data);
    globals.compositor.interfaces.emplace(interface);
    if (std::strcmp(interface, wl_seat_interface.name) == 0)
        globals.seat = number;
    if (std::strcmp(interface, Compositor::inputMethods) == 0)
        globals.manager = number;
}

constexpr wl_registry_listener registryListener = {onGlobal, [](void*, wl_registry*, std::uint32_t) {}};

int onInputMethodEvent(const void*, void* target, std::uint32_t event, const wl_message*, wl_argument*) {
    if (event == unavailable)
        *static_cast<bool*>(wl_proxy_get_user_data(static_cast<wl_proxy*>(target))) = true;
    return 0;
}

/// Becomes the input method for a moment, which fails where a program is it.
bool isInputMethodTaken(wl_display* display, wl_registry* registry, const Globals& globals) {
    auto* seat = static_cast<wl_proxy*>(wl_registry_bind(registry, globals.seat, &wl_seat_interface, 1));
    auto* manager = static_cast<wl_proxy*>(wl_registry_bind(registry, globals.manager, &managerInterface, 1));
    wl_proxy* inputMethod =
        wl_proxy_marshal_flags(manager, getInputMethod, &inputMethodInterface, 1, 0, seat, nullptr);
    bool isTaken = false;
    wl_proxy_add_dispatcher(inputMethod, onInputMethodEvent, nullptr, &isTaken);
    wl_display_roundtrip(display);
    wl_proxy_marshal_flags(inputMethod, destroyInputMethod, nullptr, 1, WL_MARSHAL_FLAG_DESTROY);
    wl_proxy_marshal_flags(manager, destroyManager, nullptr, 1, WL_MARSHAL_FLAG_DESTROY);
    wl_proxy_destroy(seat);
    wl_display_flush(display);
    return isTaken;
}

} // namespace

std::optional<Compositor> askCompositor() {
    wl_log_set_handler_client([](const char*, va_list) {}); // the doctor says it in words of its own
    const std::unique_ptr<wl_display, Disconnect> display(wl_display_connect(nullptr));
    if (!display)
        return std::nullopt;
    Globals globals;
    wl_registry* registry = wl_display_get_registry(display.get());
    wl_registry_add_listener(registry, &registryListener, &globals);
    const bool hasAnswered = wl_display_roundtrip(display.get()) >= 0;
    if (hasAnswered && globals.seat != 0 && globals.manager != 0)
        globals.compositor.hasInputMethod = isInputMethodTaken(display.get(), registry, globals);
    wl_registry_destroy(registry);
    return hasAnswered ? std::optional(std::move(globals.compositor)) : std::nullopt;
}

} // namespace vanoka
