#include "DarkDesktop.h"

#include <QColor>
#include <QGuiApplication>
#include <QPalette>
#include <QSettings>
#include <QStandardPaths>

namespace vanoka {

namespace {

bool isPaletteDark() {
    const QPalette palette = QGuiApplication::palette();
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

/// "Adwaita:dark" names a theme's dark variant, "Adwaita-dark" a theme.
bool isThemeDark(const QString& name) {
    return name.endsWith(QStringLiteral("-dark"), Qt::CaseInsensitive) ||
           name.endsWith(QStringLiteral(":dark"), Qt::CaseInsensitive);
}

/// The file with this name in the user's configuration folder.
QString configured(const QString& name) {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + QLatin1Char('/') + name;
}

bool isGtkFileDark(const QString& name) {
    const QSettings file(configured(name), QSettings::IniFormat);
    const QString prefersDark = QStringLiteral("Settings/gtk-application-prefer-dark-theme");
    return file.value(prefersDark).toBool() ||
           isThemeDark(file.value(QStringLiteral("Settings/gtk-theme-name")).toString());
}

bool isKdeFileDark() {
    const QSettings file(configured(QStringLiteral("kdeglobals")), QSettings::IniFormat);
    const QStringList rgb = file.value(QStringLiteral("Colors:Window/BackgroundNormal")).toStringList();
    if (rgb.size() == 3)
        return QColor(rgb[0].toInt(), rgb[1].toInt(), rgb[2].toInt()).lightness() < 128;
    // What stands in the section "General" has its name alone for a key.
    const QString scheme = file.value(QStringLiteral("ColorScheme")).toString();
    return scheme.endsWith(QStringLiteral("dark"), Qt::CaseInsensitive);
}

} // namespace

bool isDesktopDark() {
    return isPaletteDark() || isThemeDark(qEnvironmentVariable("GTK_THEME")) ||
           isGtkFileDark(QStringLiteral("gtk-4.0/settings.ini")) ||
           isGtkFileDark(QStringLiteral("gtk-3.0/settings.ini")) || isKdeFileDark();
}

} // namespace vanoka
