#pragma once

#include "WindowToolkit.h"

namespace vanoka::mac {

/// The windows and panels of the shared application.
class AppKitToolkit final : public WindowToolkit {
public:
    void activateApplication() override;
    void terminateApplication() override;
    std::unique_ptr<ToolkitWindow> makeWindow(const WindowDescription& description,
                                              SettingsView& content) override;
    void openAboutPanel(const std::string& applicationName, const AttributedText& credits) override;
};

} // namespace vanoka::mac
