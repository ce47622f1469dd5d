#include "Appearance.h"

#include "DarkDesktop.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QEvent>
#include <QQmlEngine>

namespace vanoka {

namespace {

// The portal's interface: org.freedesktop.portal.Settings of the XDG desktop portal.
const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearanceGroup = QStringLiteral("org.freedesktop.appearance");
const QString colourScheme = QStringLiteral("color-scheme");
const QString contrast = QStringLiteral("contrast");
constexpr uint noPreference = 0;
constexpr uint preferDark = 1;
constexpr uint highContrast = 1;

// In milliseconds.
constexpr int momentToSettle = 120;
constexpr int timeWithoutHaste = 25000;

using Group = QMap<QString, QVariant>;
using Groups = QMap<QString, Group>;

QDBusPendingCall readAll(int timeout) {
    qDBusRegisterMetaType<Group>();
    qDBusRegisterMetaType<Groups>();
    QDBusMessage message =
        QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("ReadAll"));
    message << QStringList{appearanceGroup};
    return QDBusConnection::sessionBus().asyncCall(message, timeout);
}

} // namespace

Appearance::Appearance(QObject* parent)
    : QObject(parent), first_(readAll(momentToSettle)), isDesktopDark_(isDesktopDark()) {
    QCoreApplication::instance()->installEventFilter(this);
    QDBusConnection::sessionBus().connect(service, path, interface, QStringLiteral("SettingChanged"), this,
                                          SLOT(adopt(QString, QString, QDBusVariant)));
    follow(first_);
}

Appearance& Appearance::shared() {
    static auto* appearance = new Appearance(QCoreApplication::instance());
    return *appearance;
}

Appearance* Appearance::create(QQmlEngine*, QJSEngine*) {
    QQmlEngine::setObjectOwnership(&shared(), QQmlEngine::CppOwnership);
    return &shared();
}

bool Appearance::isDark() const {
    return colourScheme_ == noPreference ? isDesktopDark_ : colourScheme_ == preferDark;
}

void Appearance::settle() {
    first_.waitForFinished();
    adoptAll(first_);
}

bool Appearance::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange) {
        isDesktopDark_ = isDesktopDark();
        emit changed();
    }
    return QObject::eventFilter(watched, event);
}

/// A portal that is only being started answers too late the first time, and is asked again without haste.
void Appearance::follow(const QDBusPendingCall& call) {
    const auto* watcher = new QDBusPendingCallWatcher(call, this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* finished) {
        adoptAll(*finished);
        if (finished->isError() && finished->error().type() == QDBusError::NoReply && !isAskedAgain_) {
            isAskedAgain_ = true;
            follow(readAll(timeWithoutHaste));
        }
        finished->deleteLater();
    });
}

void Appearance::adopt(const QString& group, const QString& name, const QDBusVariant& value) {
    if (group != appearanceGroup)
        return;
    if (name == colourScheme)
        colourScheme_ = value.variant().toUInt();
    if (name == contrast)
        isHighContrast_ = value.variant().toUInt() == highContrast;
    emit changed();
}

void Appearance::adoptAll(const QDBusPendingCall& call) {
    const QDBusPendingReply<Groups> reply = call;
    if (reply.isError())
        return;
    const Group group = reply.value().value(appearanceGroup);
    for (auto setting = group.begin(); setting != group.end(); ++setting)
        adopt(appearanceGroup, setting.key(), QDBusVariant(setting.value()));
}

} // namespace vanoka
