#pragma once

#include "IBusDaemon.h"
#include "IBusField.h"
#include "IBusPanel.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace vanoka::test {

inline constexpr const char *ourEngine = "vanoka", *plainXkb = "xkb:us::eng";

/// IBus as the tests for every framework know it.
struct IBus {
    static constexpr const char *engine = ourEngine, *plainEngine = plainXkb,
                                *ownProgram = "gtk3-im:vanoka-settings";

    static IBusDaemon& daemon() { return IBusDaemon::shared(); }
    static std::unique_ptr<RemoteField> newField(const std::string& name) {
        return std::make_unique<IBusField>(name);
    }
    static std::vector<std::function<std::unique_ptr<RemoteField>()>> everyKindOfField() {
        return {[] { return newField("test:editor"); },
                [] { return std::make_unique<IBusField>("test:editor", IBusField::Commits::field); }, newXim};
    }
    static std::unique_ptr<IBusField> newXim() {
        auto made = std::make_unique<IBusField>("xim");
        EXPECT_TRUE(made->choose(ourEngine));
        return made;
    }
    static bool choose(RemoteField& field, const char* name) {
        return static_cast<IBusField&>(field).choose(name);
    }

    static std::vector<std::string> menu(RemoteField& field) {
        auto& ibus = static_cast<IBusField&>(field);
        EXPECT_TRUE(waitUntil([&] { return ibus.menu() != nullptr; }));
        std::vector<std::string> labels;
        for (guint index = 0; IBusProperty* item = ibus_prop_list_get(ibus.menu(), index); ++index)
            labels.emplace_back(ibus_text_get_text(ibus_property_get_label(item)));
        return labels;
    }
    static void activate(RemoteField& field, std::size_t index) {
        auto& ibus = static_cast<IBusField&>(field);
        IBusProperty* item = ibus_prop_list_get(ibus.menu(), static_cast<guint>(index));
        ibus_input_context_property_activate(ibus.context(), ibus_property_get_key(item), 0);
    }
    static RemotePanel& panel() { return IBusPanel::shared(); }
    static void tellPlace(RemoteField& field, int x, int y, int width, int height) {
        ibus_input_context_set_cursor_location(static_cast<IBusField&>(field).context(), x, y, width, height);
    }
    static pid_t engineProcess() { return daemon().engineProcess().value(); }
    static pid_t busProcess() { return daemon().process(); }
    static void askBus() { ibus_bus_name_has_owner(daemon().bus(), IBUS_SERVICE_IBUS); }
    template <class Condition>
    static bool waitUntil(Condition condition) {
        return test::waitUntil(condition);
    }
};

} // namespace vanoka::test
