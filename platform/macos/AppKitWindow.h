#pragma once

#include "Memory.h"
#include "WindowToolkit.h"

#import <AppKit/AppKit.h>

@class VanokaSettingsController;

namespace vanoka::mac {

/// A window of the application that draws the settings.
class AppKitWindow final : public ToolkitWindow {
public:
    AppKitWindow(const WindowDescription& description, SettingsView& content);
    ~AppKitWindow() override;

    void makeKeyAndBringToFront() override;
    [[nodiscard]] Subscription observeWillClose(std::function<void()> observer) override;

private:
    Owned<NSWindow> window_;
    Owned<VanokaSettingsController> controller_;
};

} // namespace vanoka::mac
