#include "WebLinks.h"

#include "PlainInput.h"

#include <QDesktopServices>
#include <QUrl>

namespace vanoka {

bool WebLinks::open(const QString& address) {
    const PlainInput::Suspension theBrowserHasAnInputMethod;
    return QDesktopServices::openUrl(QUrl(address));
}

} // namespace vanoka
