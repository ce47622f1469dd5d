#include "AboutPanel.h"
#include "QtWindowToolkit.h"
#include "SettingsModel.h"
#include "TroubledDefaults.h"
#include "Typography.h"

#include <QGuiApplication>
#include <QPalette>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QtQuickTest>

#include <memory>

namespace {

using namespace vanoka;

/// What the tests in QML draw: content on settings that are stored nowhere.
class Bench : public QObject {
    Q_OBJECT
    Q_PROPERTY(vanoka::SettingsModel* model READ model NOTIFY renewed)

public:
    Bench() { renew(); }

    SettingsModel* model() { return model_.get(); }

    /// Starts afresh, with the built-in keys and the first letter.
    Q_INVOKABLE void renew() {
        std::unique_ptr<SettingsModel> old = std::move(model_);
        auto oldContent = std::move(content_);
        content_ = std::make_unique<Content>();
        model_ = std::make_unique<SettingsModel>(content_->view);
        emit renewed();
    }

    /// The stored document; empty when there is none.
    Q_INVOKABLE QString stored() {
        return qtText(content_->defaults.data(SinglishSettings::storedName).value_or(""));
    }
    /// Somebody else edits the settings.
    Q_INVOKABLE void add(const QString& key, const QString& letter) {
        content_->settings.add(key.toStdString(), letter.toStdString());
    }
    Q_INVOKABLE void setBuiltIn(const QString& key, bool on) {
        content_->settings.setBuiltIn(key.toStdString(), on);
    }

    /// The next edits cannot be stored for this reason, if it is not empty.
    Q_INVOKABLE void haveTrouble(const QString& reason) {
        content_->defaults.said.unstored = reason.toStdString();
    }
    /// The desktop's palette changes.
    Q_INVOKABLE void makePaletteDark(bool isDark) {
        QGuiApplication::setPalette(isDark ? QPalette(Qt::black) : QPalette());
    }

signals:
    void renewed();

private:
    struct Content {
        test::TroubledDefaults defaults;
        SinglishSettings settings{defaults};
        SettingsView view{settings};
    };
    std::unique_ptr<Content> content_;
    std::unique_ptr<SettingsModel> model_;
};

class Setup : public QObject {
    Q_OBJECT

public slots:
    void applicationAvailable() {
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
        QFont font = applicationFont();
        if (const int size = qEnvironmentVariableIntValue("WINDOW_TESTS_FONT_SIZE"))
            font.setPixelSize(size);
        QGuiApplication::setFont(font);
    }
    void qmlEngineAvailable(QQmlEngine* engine) {
        engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
        engine->rootContext()->setContextProperty(QStringLiteral("bench"), &bench_);
    }

private:
    Bench bench_;
};

} // namespace

QUICK_TEST_MAIN_WITH_SETUP(settings_window, Setup)

#include "WindowTest.moc"
