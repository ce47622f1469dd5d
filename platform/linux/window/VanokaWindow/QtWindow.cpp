#include "QtWindow.h"

#include "support/Fatal.h"

#include <QEvent>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QScreen>

#include <utility>

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

/// What there is for a window on its screen, beside the frame that it has by now.
QSize roomFor(const QWindow& window) {
    return window.screen()->availableGeometry().marginsRemoved(window.frameMargins()).size();
}

/// The least size that the content asks for, or what a smaller screen allows: there, the content scrolls.
void limit(QWindow& window) {
    const QSizeF least(SettingsView::minimumWidth, SettingsView::minimumHeight);
    window.setMinimumSize(least.toSize().boundedTo(roomFor(window)));
}

/// Makes a window that is larger than its screen as large as that.
void fit(QWindow& window) {
    limit(window);
    window.resize(window.size().boundedTo(roomFor(window)));
}

void centre(QWindow& window) {
    QRect frame = window.frameGeometry();
    frame.moveCenter(window.screen()->availableGeometry().center());
    window.setFramePosition(frame.topLeft());
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
                               {QStringLiteral("height"), description.height}})) {
    window_->setFlags(flagsOf(description));
    fit(*window_);
    if (description.isCentred)
        centre(*window_);
    connect(window_.get(), &QWindow::screenChanged, this, [this] { limit(*window_); });
    window_->installEventFilter(this);
}

QtWindow::~QtWindow() = default;

void QtWindow::makeKeyAndBringToFront() {
    bringToFront(*window_);
}

Subscription QtWindow::observeWillClose(std::function<void()> observer) {
    return willClose_.subscribe(std::move(observer));
}

/// The frame takes a part of the screen, too, and is known only when the window is seen for the first time.
void QtWindow::meetFrame() {
    if (std::exchange(hasBeenSeen_, true))
        return;
    const QSize before = window_->size();
    fit(*window_);
    if (window_->size() != before)
        centre(*window_);
}

bool QtWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == window_.get() && event->type() == QEvent::Close)
        willClose_.announce();
    if (watched == window_.get() && event->type() == QEvent::Expose && window_->isExposed())
        meetFrame();
    return QObject::eventFilter(watched, event);
}

} // namespace vanoka
