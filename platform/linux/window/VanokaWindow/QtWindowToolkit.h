#pragma once

#include "WindowToolkit.h"

#include <QQmlEngine>

#include <memory>

class QQuickWindow;

namespace vanoka {

/// The toolkit of this platform: windows drawn by Qt Quick. Make one when the application object exists, and
/// destroy it before that.
class QtWindowToolkit final : public WindowToolkit {
public:
    QtWindowToolkit();
    ~QtWindowToolkit() override;

    void activateApplication() override {} // a window that is brought to the front brings its application
    void terminateApplication() override;
    std::unique_ptr<ToolkitWindow> makeWindow(const WindowDescription& description,
                                              SettingsView& content) override;
    void openAboutPanel(const std::string& applicationName, const AttributedText& credits) override;

private:
    QQmlEngine engine_;
    std::unique_ptr<QQuickWindow> aboutPanel_;
};

} // namespace vanoka
