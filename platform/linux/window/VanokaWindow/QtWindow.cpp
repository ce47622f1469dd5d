#include "QtWindow.h"

#include "support/Fatal.h"

#include <QEvent>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QScreen>

#include <algorithm>

namespace vanoka {

namespace {

Qt::WindowFlags flagsOf(const WindowDescription& description) {
    Qt::WindowFlags flags = Qt::Window | Qt::CustomizeWindowHint;
    flags.setFlag(Qt::WindowTitleHint, description.isTitled);
    flags.setFlag(Qt::WindowSystemMenuHint, description.isTitled);
    flags.setFlag(Qt::WindowCloseButtonHint, description.isClosable);
    flags.setFlag(Qt::WindowMinimizeButtonHint, description.isMiniaturizable);
    flags.setFlag(Qt::WindowMaximizeButtonHint, description.isResizable);
    return flags;
}

/// In the middle of the screen; on a screen that is too small, with its title and first letters in sight.
void centre(QWindow& window) {
    const QRect screen = window.screen()->availableGeometry();
    const QPoint middle = screen.center() - QRect(QPoint(), window.size()).center();
    window.setPosition(std::max(screen.left(), middle.x()), std::max(screen.top(), middle.y()));
}

} // namespace

std::unique_ptr<QQuickWindow> makeQuickWindow(QQmlEngine& engine, const QString& name,
                                              const QVariantMap& properties) {
    QQmlComponent component(&engine, QUrl(QStringLiteral("qrc:/qt/qml/VanokaWindow/") + name));
    if (!component.isReady())
        fatal("Could not read the window: " + component.errorString().toStdString());
    std::unique_ptr<QObject> object(component.createWithInitialProperties(properties));
    auto* window = qobject_cast<QQuickWindow*>(object.get());
    if (!window)
        fatal("Could not make the window: " + component.errorString().toStdString());
    static_cast<void>(object.release());
    return std::unique_ptr<QQuickWindow>(window);
}

void bringToFront(QQuickWindow& window) {
    if (window.windowStates() & Qt::WindowMinimized)
        window.setWindowStates(window.windowStates() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.requestActivate();
}

QtWindow::QtWindow(QQmlEngine& engine, const WindowDescription& description, SettingsView& content)
    : model_(content),
      window_(makeQuickWindow(engine, QStringLiteral("SettingsWindow.qml"),
                              {{QStringLiteral("settings"), QVariant::fromValue(&model_)},
                               {QStringLiteral("title"), qtText(description.title)},
                               {QStringLiteral("width"), description.width},
                               {QStringLiteral("height"), description.height},
                               {QStringLiteral("minimumWidth"), SettingsView::minimumWidth},
                               {QStringLiteral("minimumHeight"), SettingsView::minimumHeight}})) {
    window_->setFlags(flagsOf(description));
    if (description.isCentred)
        centre(*window_);
    window_->installEventFilter(this);
}

QtWindow::~QtWindow() = default;

void QtWindow::makeKeyAndBringToFront() {
    bringToFront(*window_);
}

Subscription QtWindow::observeWillClose(std::function<void()> observer) {
    return willClose_.subscribe(std::move(observer));
}

bool QtWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == window_.get() && event->type() == QEvent::Close)
        willClose_.announce();
    return QObject::eventFilter(watched, event);
}

} // namespace vanoka
