#pragma once

#include <QDBusPendingCall>
#include <QDBusVariant>
#include <QObject>
#include <QtQml/qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace vanoka {

/// Whether the desktop wants dark windows, and high contrast, as its settings portal tells. Where it tells of
/// neither dark nor light, other signs of the desktop count. It follows the portal and the toolkit's palette
/// for as long as it lives.
class Appearance : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool isDark READ isDark NOTIFY changed FINAL)
    Q_PROPERTY(bool isHighContrast READ isHighContrast NOTIFY changed FINAL)

public:
    explicit Appearance(QObject* parent = nullptr);

    /// The one of this process, made on first use. The engine does not own it.
    static Appearance& shared();
    static Appearance* create(QQmlEngine* engine, QJSEngine* scripts);

    bool isDark() const;
    bool isHighContrast() const { return isHighContrast_; }

    /// Waits until the portal has told the present settings, for a moment at most, so that a window need not
    /// be drawn twice.
    void settle();

signals:
    void changed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Q_SLOT void adopt(const QString& group, const QString& name, const QDBusVariant& value);
    void follow(const QDBusPendingCall& call);
    void adoptAll(const QDBusPendingCall& call);

    QDBusPendingCall first_;
    bool isAskedAgain_ = false;
    uint colourScheme_ = 0; ///< as the portal tells it
    bool isDesktopDark_;
    bool isHighContrast_ = false;
};

} // namespace vanoka
