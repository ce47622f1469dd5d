#pragma once

#include "SettingsModel.h"
#include "WindowToolkit.h"

#include <QObject>

#include <memory>

class QQmlEngine;
class QQuickWindow;

namespace vanoka {

/// The settings window as Qt Quick draws it.
class QtWindow final : public QObject, public ToolkitWindow {
    Q_OBJECT

public:
    QtWindow(QQmlEngine& engine, const WindowDescription& description, SettingsView& content);
    ~QtWindow() override;

    void makeKeyAndBringToFront() override;
    Subscription observeWillClose(std::function<void()> observer) override;

    QQuickWindow* window() const { return window_.get(); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void meetFrame();

    SettingsModel model_;
    std::unique_ptr<QQuickWindow> window_;
    bool hasBeenSeen_ = false;
    Announcer<> willClose_;
};

/// Makes a window from this module's file `name`. An error in the file stops the process.
std::unique_ptr<QQuickWindow> makeQuickWindow(QQmlEngine& engine, const QString& name,
                                              const QVariantMap& properties);

/// Shows a window and asks for the keyboard.
void bringToFront(QQuickWindow& window);

} // namespace vanoka
