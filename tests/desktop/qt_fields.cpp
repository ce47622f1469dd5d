// Two windows, the first with two text fields and the second with one, that write their texts as one line to
// standard output whenever one changes. With "password" the second field hides its text; with "left" the
// first gives the focus to the second as soon as it holds a space; with "alone" there is no second window.
#include <QApplication>
#include <QLineEdit>
#include <QVBoxLayout>
#include <QWidget>
#include <cstdio>
#include <vector>

namespace {

std::vector<QLineEdit*> fields;

void report() {
    QStringList texts;
    for (const QLineEdit* field : fields)
        texts.append(field->text());
    std::printf("%s\n", texts.join(QLatin1Char('|')).toUtf8().constData());
    std::fflush(stdout);
}

void fill(QWidget& window, const char* title, int count) {
    auto* box = new QVBoxLayout(&window);
    box->setContentsMargins(0, 0, 0, 0);
    box->setSpacing(0);
    for (int i = 0; i < count; ++i) {
        auto* field = new QLineEdit;
        field->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        box->addWidget(field);
        fields.push_back(field);
        QObject::connect(field, &QLineEdit::textChanged, [] { report(); });
    }
    window.setWindowTitle(QString::fromLatin1(title));
    window.setGeometry(0, 0, 400, 100 * count);
}

} // namespace

int main(int count, char** arguments) {
    const QApplication application(count, arguments);
    QWidget one, two;
    fill(one, "vanoka-one", 2);
    fill(two, "vanoka-two", 1);
    if (count > 1 && QByteArray(arguments[1]) == "password")
        fields[1]->setEchoMode(QLineEdit::Password);
    if (count > 1 && QByteArray(arguments[1]) == "left")
        QObject::connect(fields[0], &QLineEdit::textChanged, [](const QString& text) {
            if (text.contains(QLatin1Char(' ')))
                fields[1]->setFocus();
        });
    one.show();
    if (count < 2 || QByteArray(arguments[1]) != "alone")
        two.show();
    report();
    return QApplication::exec();
}
