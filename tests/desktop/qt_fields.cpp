// Two windows, the first with two text fields and the second with one, that write their texts as one line to
// standard output whenever one changes. With "password" the second field hides its text; with "left" the
// first gives the focus to the second as soon as it holds a space; with "alone" there is no second window.
// With "watched" the line goes on with the marked text and with the number of the field that has the focus,
// "!" after it while its caret is at the end and nothing is selected.
#include <QApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QVBoxLayout>
#include <QWidget>
#include <cstdio>
#include <vector>

namespace {

std::vector<QLineEdit*> fields;
QString marked;
bool isWatched = false;

void write(const QString& text) {
    std::printf("%s", text.toUtf8().constData());
}

void reportFocus() {
    write(QLatin1Char('|') + marked + QLatin1Char('|'));
    for (std::size_t i = 0; i < fields.size(); ++i)
        if (fields[i]->hasFocus())
            std::printf("%d%s", static_cast<int>(i),
                        !fields[i]->hasSelectedText() &&
                                fields[i]->cursorPosition() == fields[i]->text().size()
                            ? "!"
                            : "");
}

void report() {
    QStringList texts;
    for (const QLineEdit* field : fields)
        texts.append(field->text());
    write(texts.join(QLatin1Char('|')));
    if (isWatched)
        reportFocus();
    std::printf("\n");
    std::fflush(stdout);
}

class Field : public QLineEdit {
    void inputMethodEvent(QInputMethodEvent* event) override {
        marked = event->preeditString();
        QLineEdit::inputMethodEvent(event);
        reportIfWatched();
    }
    void focusInEvent(QFocusEvent* event) override {
        QLineEdit::focusInEvent(event);
        reportIfWatched();
    }
    void focusOutEvent(QFocusEvent* event) override {
        QLineEdit::focusOutEvent(event);
        reportIfWatched();
    }
    static void reportIfWatched() {
        if (isWatched)
            report();
    }
};

void watch(const QLineEdit& field) {
    QObject::connect(&field, &QLineEdit::cursorPositionChanged, [] { report(); });
    QObject::connect(&field, &QLineEdit::selectionChanged, [] { report(); });
}

void fill(QWidget& window, const char* title, int count) {
    auto* box = new QVBoxLayout(&window);
    box->setContentsMargins(0, 0, 0, 0);
    box->setSpacing(0);
    for (int i = 0; i < count; ++i) {
        auto* field = new Field;
        field->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        box->addWidget(field);
        fields.push_back(field);
        QObject::connect(field, &QLineEdit::textChanged, [] { report(); });
        if (isWatched)
            watch(*field);
    }
    window.setWindowTitle(QString::fromLatin1(title));
    window.setGeometry(0, 0, 400, 100 * count);
}

} // namespace

int main(int count, char** arguments) {
    const QApplication application(count, arguments);
    const QStringList modes = QApplication::arguments();
    isWatched = modes.contains(QLatin1String("watched"));
    QWidget one, two;
    fill(one, "vanoka-one", 2);
    fill(two, "vanoka-two", 1);
    if (modes.contains(QLatin1String("password")))
        fields[1]->setEchoMode(QLineEdit::Password);
    if (modes.contains(QLatin1String("left")))
        QObject::connect(fields[0], &QLineEdit::textChanged, [](const QString& text) {
            if (text.contains(QLatin1Char(' ')))
                fields[1]->setFocus();
        });
    one.show();
    if (!modes.contains(QLatin1String("alone")))
        two.show();
    report();
    return QApplication::exec();
}
