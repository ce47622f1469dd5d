#include "XimKey.h"

#include <fcitx/addonmanager.h>
#include <fcitx/inputcontext.h>
#include <memory>
#include <string_view>
#include <xcb_public.h>
#include <xkbcommon/xkbcommon.h>

namespace vanoka::fcitx5 {

namespace {

constexpr std::string_view displayPrefix = "x11:"; // of what the framework calls an X display

struct Release {
    void operator()(xkb_state* state) const noexcept { xkb_state_unref(state); }
};

/// The keymap of the display that the field is on; null where it is not known.
xkb_keymap* keymapOf(const fcitx::InputContext& context, fcitx::Instance& instance) {
    const std::string display = context.display();
    fcitx::AddonInstance* xcb = instance.addonManager().addon("xcb");
    if (!xcb || !display.starts_with(displayPrefix))
        return nullptr;
    xkb_state* now = xcb->call<fcitx::IXCBModule::xkbState>(display.substr(displayPrefix.size()));
    return now ? xkb_state_get_keymap(now) : nullptr;
}

} // namespace

std::uint32_t keysymOf(const fcitx::KeyEvent& event, fcitx::Instance& instance) {
    const fcitx::InputContext& context = *event.inputContext();
    const fcitx::Key key = event.rawKey();
    const auto keysym = static_cast<std::uint32_t>(key.sym());
    // One that the framework has looked up in a layout of its own is no longer the server's.
    if (std::string_view(context.frontend()) != "xim" || key.sym() != event.origKey().sym())
        return keysym;
    xkb_keymap* keymap = keymapOf(context, instance);
    const std::unique_ptr<xkb_state, Release> then(keymap ? xkb_state_new(keymap) : nullptr);
    if (!then)
        return keysym;
    // Of X's state of a key, the first byte is the modifiers, and two bits are the layout.
    const auto state = static_cast<std::uint32_t>(event.origKey().states().toInteger());
    xkb_state_update_mask(then.get(), state & 0xFF, 0, 0, 0, 0, state >> 13 & 3);
    return xkb_state_key_get_one_sym(then.get(), static_cast<xkb_keycode_t>(key.code()));
}

} // namespace vanoka::fcitx5
