#include "Typography.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QGuiApplication>
#include <QHash>

#include <algorithm>

namespace vanoka {

namespace {

/// The families that shape every conjunct of the script; others let some fall apart.
const QStringList& preferredSinhalaFamilies() {
    static const QStringList families = {QStringLiteral("Noto Sans Sinhala"),
                                         QStringLiteral("Noto Serif Sinhala"),
                                         QStringLiteral("Iskoola Pota")};
    return families;
}

QString firstInstalled(const QStringList& wanted, const QStringList& installed) {
    const auto found =
        std::ranges::find_if(wanted, [&](const auto& name) { return installed.contains(name); });
    return found == wanted.end() ? QString() : *found;
}

QString sinhalaFamily() {
    const QStringList installed = QFontDatabase::families(QFontDatabase::Sinhala);
    const QString preferred = firstInstalled(preferredSinhalaFamilies(), installed);
    return preferred.isEmpty() ? installed.value(0) : preferred;
}

/// Under a Sinhala locale the desktop's default may be a Sinhala family, whose Latin letters are none to
/// read.
QString latinFamily() {
    QString family = QFontInfo(QGuiApplication::font()).family();
    if (!QFontDatabase::families(QFontDatabase::Sinhala).contains(family))
        return family;
    const QStringList readable = {QStringLiteral("Noto Sans"), QStringLiteral("Cantarell"),
                                  QStringLiteral("DejaVu Sans")};
    const QString found = firstInstalled(readable, QFontDatabase::families(QFontDatabase::Latin));
    return found.isEmpty() ? family : found;
}

/// How a role's size and weight stand to the body text.
struct Look {
    double size = 1;
    QFont::Weight weight = QFont::Normal;
};

Look lookOf(FontRole role) {
    switch (role) {
    case FontRole::title2:
        return {1.4};
    case FontRole::headline:
        return {1, QFont::DemiBold};
    case FontRole::subheadline:
    case FontRole::callout:
        return {0.95};
    case FontRole::footnote:
    case FontRole::caption:
    case FontRole::smallSystem:
        return {0.9};
    case FontRole::body:
    case FontRole::system:
        break;
    }
    return {};
}

} // namespace

QFont applicationFont() {
    QFont font = QGuiApplication::font();
    font.setFamilies({latinFamily(), sinhalaFamily()});
    return font;
}

QFont fontOf(const Font& wanted) {
    QFont font = QGuiApplication::font();
    const Look look = lookOf(wanted.role);
    const double size =
        wanted.role == FontRole::system ? wanted.size : QFontInfo(font).pixelSize() * look.size;
    font.setPixelSize(std::max(1, qRound(size)));
    font.setWeight(wanted.isSemibold ? QFont::DemiBold : look.weight);
    if (wanted.isMonospaced)
        font.setFamilies(
            {QFontInfo(QFontDatabase::systemFont(QFontDatabase::FixedFont)).family(), sinhalaFamily()});
    return font;
}

} // namespace vanoka
