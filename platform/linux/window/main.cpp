#include "AboutPanel.h"
#include "Appearance.h"
#include "FileChanges.h"
#include "FileUserDefaults.h"
#include "Identity.h"
#include "PlainInput.h"
#include "QtWindowToolkit.h"
#include "SettingsWindow.h"
#include "SingleInstance.h"
#include "Typography.h"

#include <QGuiApplication>
#include <QIcon>
#include <QQuickWindow>
#include <QTimer>

#include <cstdio>
#include <optional>

namespace {

using namespace vanoka;

constexpr const char* help = R"(Shows and edits the keys that type each Sinhala letter.

Usage:
  vanoka-settings              open the settings window
  vanoka-settings --about      open the about panel
  vanoka-settings --help, --version

A second start brings the window of the first to the front.
Exit status: 0 when the window is closed, 2 not understood.
)";

constexpr int timeToStoreAgain = 2000; // in milliseconds

const QString about = QStringLiteral("about"); // the action of the about panel; the window's has no name

void say(FILE* stream, const QString& text) {
    std::fputs(text.toUtf8().constData(), stream);
}

/// What the arguments ask for; nothing when they are not understood. "--settings" is what is done anyway.
std::optional<QString> actionOf(const QStringList& arguments) {
    QString action;
    for (const QString& argument : arguments) {
        if (argument == QStringLiteral("--about"))
            action = about;
        else if (argument != QStringLiteral("--settings"))
            return std::nullopt;
    }
    return action;
}

/// The help and the version need no display.
std::optional<int> answerWithoutWindow(int count, char** values) {
    for (int i = 1; i < count; ++i) {
        const QByteArray argument = values[i];
        if (argument == "--help" || argument == "-h") {
            say(stdout, QString::fromUtf8(help));
            return 0;
        }
        if (argument == "--version") {
            say(stdout, QStringLiteral("vanoka-settings %1\n").arg(Identity::version));
            return 0;
        }
    }
    return std::nullopt;
}

QtMessageHandler handlerOfToolkit = nullptr;

/// The toolkit warns of Sinhala letters that the first family of the application's font cannot join, and then
/// takes the second, which is there for them.
void handleMessage(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (!message.contains(QStringLiteral("OpenType support missing")))
        handlerOfToolkit(type, context, message);
}

void prepareToolkit() {
    handlerOfToolkit = qInstallMessageHandler(handleMessage);
    PlainInput::begin();
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software); // a quiet window needs no graphics card
    QGuiApplication::setDesktopFileName(Identity::settingsId);
    QGuiApplication::setApplicationName(QStringLiteral("vanoka-settings"));
    QGuiApplication::setApplicationVersion(Identity::version);
}

} // namespace

int main(int count, char** values) {
    if (const auto status = answerWithoutWindow(count, values))
        return *status;
    prepareToolkit();
    QGuiApplication application(count, values);
    const auto action = actionOf(QGuiApplication::arguments().mid(1));
    if (!action) {
        say(stderr,
            QStringLiteral("vanoka-settings: Not understood. vanoka-settings --help tells what is.\n"));
        return 2;
    }
    SingleInstance instance(Identity::settingsId, &application);
    if (!instance.isFirst() && instance.askFirst(*action))
        return 0;

    Appearance& appearance = Appearance::shared();
    QGuiApplication::setFont(applicationFont());
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/qt/qml/VanokaWindow/vanoka.svg")));
    QtWindowToolkit toolkit;
    SinglishSettings& settings = SinglishSettings::shared();
    SettingsWindow window(settings, toolkit);
    const auto show = [&](const QString& asked) {
        if (asked == about)
            AboutPanel::show(toolkit);
        else
            window.show(true);
    };
    QObject::connect(&instance, &SingleInstance::asked, &application, show);
    // Keys that are edited elsewhere are shown: when they change, and, as another machine's changes may not
    // be told, when somebody comes back to look.
    const FileChanges changes(FileUserDefaults::standard().pathOf(SinglishSettings::storedName));
    QObject::connect(&changes, &FileChanges::changed, &application, [&] { window.reload(); });
    QObject::connect(&application, &QGuiApplication::focusWindowChanged, &application, [&](QWindow* focused) {
        if (focused)
            window.reload();
    });
    // What could not be stored is stored as soon as it can be.
    QTimer again;
    const Subscription edits = settings.observeWillChange([&] { again.start(timeToStoreAgain); });
    QObject::connect(&again, &QTimer::timeout, &application, [&] {
        if (settings.condition().unstored.empty())
            again.stop();
        else
            window.reload();
    });
    appearance.settle();
    show(*action);
    return QGuiApplication::exec();
}
