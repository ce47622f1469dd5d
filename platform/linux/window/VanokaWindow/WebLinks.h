#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace vanoka {

/// Opens web addresses in the user's browser.
class WebLinks : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    Q_INVOKABLE static bool open(const QString& address);
};

} // namespace vanoka
