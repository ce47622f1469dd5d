#pragma once

#include "WindowToolkit.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vanoka::test {

/// A toolkit that draws nothing and writes down what it is asked for.
class FakeToolkit final : public WindowToolkit {
public:
    void activateApplication() override { log.emplace_back("activate"); }
    void terminateApplication() override { log.emplace_back("terminate"); }

    std::unique_ptr<ToolkitWindow> makeWindow(const WindowDescription& asked, SettingsView& drawn) override {
        log.push_back("make " + std::string(asked.title));
        description = asked;
        content = &drawn;
        return std::make_unique<Window>(*this);
    }

    void openAboutPanel(const std::string& applicationName, const AttributedText& text) override {
        log.push_back("about " + applicationName);
        credits = text;
    }

    /// The user closes the window.
    void close() { willClose_.announce(); }

    std::vector<std::string> log;
    WindowDescription description;
    SettingsView* content = nullptr;
    AttributedText credits;

private:
    class Window final : public ToolkitWindow {
    public:
        explicit Window(FakeToolkit& toolkit) : toolkit_(toolkit) {}
        void makeKeyAndBringToFront() override { toolkit_.log.emplace_back("front"); }
        Subscription observeWillClose(std::function<void()> observer) override {
            return toolkit_.willClose_.subscribe(std::move(observer));
        }

    private:
        FakeToolkit& toolkit_;
    };

    Announcer<> willClose_;
};

} // namespace vanoka::test
