#pragma once

#include "Fcitx5Daemon.h"
#include "Fcitx5Field.h"
#include "Fcitx5Panel.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vanoka::test {

/// Fcitx5 as the tests for every framework know it.
struct Fcitx5 {
    static constexpr const char *engine = "vanoka", *plainEngine = "keyboard-us",
                                *ownProgram = "vanoka-settings";

    static Fcitx5Daemon& daemon() { return Fcitx5Daemon::shared(); }
    static std::unique_ptr<RemoteField> newField(const std::string& program) {
        return std::make_unique<Fcitx5Field>(program);
    }
    static std::vector<std::function<std::unique_ptr<RemoteField>()>> everyKindOfField() {
        return {[] { return newField("editor"); }};
    }
    static bool choose(RemoteField&, const char* name) { return daemon().choose(name); }

    static std::vector<std::string> menu(RemoteField&) {
        std::vector<std::string> labels;
        for (const Fcitx5Panel::Entry& entry : Fcitx5Panel::shared().entries())
            labels.push_back(entry.label);
        return labels;
    }
    static void activate(RemoteField&, std::size_t index) {
        Fcitx5Panel& panel = Fcitx5Panel::shared();
        panel.clickEntry(panel.entries().at(index));
    }
    static RemotePanel& panel() { return Fcitx5Panel::shared(); }
    static void tellPlace(RemoteField& field, int x, int y, int width, int height) {
        static_cast<Fcitx5Field&>(field).tellPlace(x, y, width, height);
    }
    static pid_t engineProcess() { return daemon().framework(); }
    static pid_t busProcess() { return daemon().bus(); }
    static void askBus() { daemon().isOnBus(); }
    template <class Condition>
    static bool waitUntil(Condition condition) {
        return test::waitUntil(condition);
    }
};

} // namespace vanoka::test
