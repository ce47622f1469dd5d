#include "SingleInstance.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

namespace vanoka {

namespace {

constexpr const char* tokenVariable = "XDG_ACTIVATION_TOKEN"; // where the toolkit looks for it

/// What the desktop has given this process to come to the front with, for the process that has the window.
QVariantMap platformData() {
    QVariantMap data;
    if (const QByteArray token = qgetenv(tokenVariable); !token.isEmpty())
        data.insert(QStringLiteral("activation-token"), QString::fromUtf8(token));
    return data;
}

void adopt(const QVariantMap& platformData) {
    const QString token = platformData.value(QStringLiteral("activation-token")).toString();
    if (!token.isEmpty())
        qputenv(tokenVariable, token.toUtf8());
}

} // namespace

SingleInstance::SingleInstance(const QString& name, QObject* parent)
    : QDBusAbstractAdaptor(parent),
      name_(name),
      path_(QLatin1Char('/') + QString(name).replace(QLatin1Char('.'), QLatin1Char('/'))) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    // The object comes first: whoever finds the name finds it too.
    bus.registerObject(path_, parent, QDBusConnection::ExportAdaptors);
    isFirst_ = bus.registerService(name_);
}

bool SingleInstance::askFirst(const QString& action) const {
    const bool isMain = action.isEmpty();
    QDBusMessage message = QDBusMessage::createMethodCall(
        name_, path_, QStringLiteral("org.freedesktop.Application"),
        isMain ? QStringLiteral("Activate") : QStringLiteral("ActivateAction"));
    if (!isMain)
        message << action << QVariantList();
    message << platformData();
    return QDBusConnection::sessionBus().call(message).type() == QDBusMessage::ReplyMessage;
}

void SingleInstance::Activate(const QVariantMap& platformData) {
    adopt(platformData);
    emit asked(QString());
}

void SingleInstance::Open(const QStringList&, const QVariantMap& platformData) {
    Activate(platformData);
}

void SingleInstance::ActivateAction(const QString& action, const QVariantList&,
                                    const QVariantMap& platformData) {
    adopt(platformData);
    emit asked(action);
}

} // namespace vanoka
