#include "QtWindowToolkit.h"

#include "QtWindow.h"
#include "Values.h"

#include <QGuiApplication>
#include <QQuickWindow>

namespace vanoka {

namespace {

/// The credits as lines of pieces.
QVariantList linesOf(const AttributedText& credits) {
    QVariantList lines, line;
    for (const AttributedPiece& piece : credits) {
        AttributedPiece part = piece;
        const bool endsLine = part.text.ends_with('\n');
        if (endsLine)
            part.text.pop_back();
        line.append(QVariant::fromValue(LinkValue(part)));
        if (endsLine)
            lines.append(QVariant(std::exchange(line, {})));
    }
    if (!line.isEmpty())
        lines.append(QVariant(line));
    return lines;
}

double lineSpacing(const AttributedText& credits) {
    return credits.empty() ? 0 : credits.front().attributes.paragraph.spacing;
}

} // namespace

QtWindowToolkit::QtWindowToolkit() {
    engine_.addImportPath(QStringLiteral("qrc:/qt/qml"));
}

QtWindowToolkit::~QtWindowToolkit() = default;

void QtWindowToolkit::terminateApplication() {
    QCoreApplication::exit(0);
}

std::unique_ptr<ToolkitWindow> QtWindowToolkit::makeWindow(const WindowDescription& description,
                                                           SettingsView& content) {
    return std::make_unique<QtWindow>(engine_, description, content);
}

void QtWindowToolkit::openAboutPanel(const std::string& applicationName, const AttributedText& credits) {
    if (!aboutPanel_) {
        aboutPanel_ = makeQuickWindow(engine_, QStringLiteral("AboutPanel.qml"),
                                      {{QStringLiteral("applicationName"), qtText(applicationName)},
                                       {QStringLiteral("version"), QCoreApplication::applicationVersion()},
                                       {QStringLiteral("credits"), linesOf(credits)},
                                       {QStringLiteral("lineSpacing"), lineSpacing(credits)}});
    }
    bringToFront(*aboutPanel_);
}

} // namespace vanoka
