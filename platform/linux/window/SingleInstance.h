#pragma once

#include <QDBusAbstractAdaptor>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

namespace vanoka {

/// One process for each user's session: the first takes the program's name on the session bus, and a later
/// one asks it to show its window and ends. Without a session bus every process is the first.
///
/// The first answers to the interface org.freedesktop.Application of the desktop-entry standard.
class SingleInstance final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    /// The process of the program with this reverse-DNS name. `parent` is the application object.
    SingleInstance(const QString& name, QObject* parent);

    /// False when another process has the name.
    bool isFirst() const { return isFirst_; }

    /// Asks the first process for `action`, or, when it is empty, for its main window. False when it does not
    /// answer.
    bool askFirst(const QString& action) const;

    Q_SLOT void Activate(const QVariantMap& platformData);
    Q_SLOT void Open(const QStringList& addresses, const QVariantMap& platformData);
    Q_SLOT void ActivateAction(const QString& action, const QVariantList& parameters,
                               const QVariantMap& platformData);

signals:
    /// Another process has asked for this.
    void asked(const QString& action);

private:
    QString name_;
    QString path_;
    bool isFirst_ = true;
};

} // namespace vanoka
