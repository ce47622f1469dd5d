#pragma once

#include "DelayedDrawing.h"
#include "RowModels.h"
#include "SettingsView.h"
#include "Values.h"

#include <QObject>
#include <QString>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

namespace vanoka {

/// The settings window's content for QML: reads it from the view, and passes on what the user does. Every
/// property is read from the view when it is asked for. `changed` comes at once when the user has typed,
/// chosen or added something, as the next event may be waiting already; else, once for all changes of one
/// turn of the event loop.
class SettingsModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the window's toolkit")
    Q_PROPERTY(vanoka::TextValue notice READ notice NOTIFY changed FINAL)
    Q_PROPERTY(vanoka::LetterRowsModel* letters READ letters CONSTANT FINAL)
    Q_PROPERTY(double letterWidth READ letterWidth CONSTANT FINAL)
    Q_PROPERTY(double sidebarWidth READ sidebarWidth CONSTANT FINAL)
    Q_PROPERTY(double sidebarMinimumWidth READ sidebarMinimumWidth CONSTANT FINAL)
    Q_PROPERTY(int selectedRow READ selectedRow WRITE select NOTIFY changed FINAL)
    Q_PROPERTY(vanoka::TextValue productName READ productName NOTIFY changed FINAL)
    Q_PROPERTY(vanoka::TextValue sinhalaName READ sinhalaName NOTIFY changed FINAL)
    Q_PROPERTY(QVariantList links READ links NOTIFY changed FINAL)
    Q_PROPERTY(double iconSize READ iconSize CONSTANT FINAL)

    Q_PROPERTY(bool hasEditor READ hasEditor NOTIFY changed FINAL)
    Q_PROPERTY(vanoka::TextValue placeholder READ placeholder NOTIFY changed FINAL)
    Q_PROPERTY(vanoka::TextValue letterText READ letterText NOTIFY changed FINAL)
    Q_PROPERTY(vanoka::TextValue kind READ kind NOTIFY changed FINAL)
    Q_PROPERTY(vanoka::TextValue example READ example NOTIFY changed FINAL)
    Q_PROPERTY(vanoka::TextValue keysTitle READ keysTitle CONSTANT FINAL)
    Q_PROPERTY(vanoka::KeyRowsModel* keys READ keys CONSTANT FINAL)
    Q_PROPERTY(double keyWidth READ keyWidth CONSTANT FINAL)
    Q_PROPERTY(vanoka::TextValue addTitle READ addTitle CONSTANT FINAL)
    Q_PROPERTY(QString fieldLabel READ fieldLabel NOTIFY changed FINAL)
    Q_PROPERTY(QString fieldPrompt READ fieldPrompt NOTIFY changed FINAL)
    Q_PROPERTY(QFont fieldFont READ fieldFont NOTIFY changed FINAL)
    Q_PROPERTY(QString draft READ draft WRITE setDraft NOTIFY changed FINAL)
    Q_PROPERTY(QString addButton READ addButton NOTIFY changed FINAL)
    Q_PROPERTY(bool canAdd READ canAdd NOTIFY changed FINAL)
    Q_PROPERTY(vanoka::TextValue message READ message NOTIFY changed FINAL)
    Q_PROPERTY(vanoka::TextValue footnote READ footnote NOTIFY changed FINAL)

    Q_PROPERTY(QString resetButton READ resetButton NOTIFY changed FINAL)
    Q_PROPERTY(bool canReset READ canReset NOTIFY changed FINAL)
    Q_PROPERTY(bool isConfirmingReset READ isConfirmingReset NOTIFY changed FINAL)
    Q_PROPERTY(QString dialogTitle READ dialogTitle CONSTANT FINAL)
    Q_PROPERTY(QString dialogConfirm READ dialogConfirm CONSTANT FINAL)
    Q_PROPERTY(QString dialogCancel READ dialogCancel CONSTANT FINAL)

public:
    /// The content of `view`, which must outlive this.
    explicit SettingsModel(SettingsView& view, QObject* parent = nullptr);

    /// Empty when there is nothing to tell.
    TextValue notice() const { return TextValue(view_.notice()); }
    LetterRowsModel* letters() { return &letters_; }
    double letterWidth() const { return LetterRow::letterWidth; }
    double sidebarWidth() const { return SettingsView::sidebarWidth; }
    double sidebarMinimumWidth() const { return SettingsView::sidebarMinimumWidth; }
    /// The title of the section with this name, with its looks.
    Q_INVOKABLE vanoka::TextValue sectionTitle(const QString& name) const;
    /// The row of the chosen letter; -1 when there is none.
    int selectedRow() const;
    TextValue productName() const { return TextValue(view_.footer().name); }
    TextValue sinhalaName() const { return TextValue(view_.footer().sinhalaName); }
    QVariantList links() const;
    double iconSize() const { return SettingsView::Footer::iconSize; }

    // The editor's properties are empty without an editor.
    bool hasEditor() const { return view_.editor() != nullptr; }
    TextValue placeholder() const { return TextValue(SettingsView::placeholder()); }
    TextValue letterText() const { return textOf(&LetterEditor::letterText); }
    TextValue kind() const { return textOf(&LetterEditor::kind); }
    TextValue example() const { return textOf(&LetterEditor::example); }
    TextValue keysTitle() const { return TextValue(LetterEditor::keysTitle()); }
    KeyRowsModel* keys() { return &keys_; }
    double keyWidth() const { return KeyRow::keyWidth; }
    TextValue addTitle() const { return TextValue(LetterEditor::addTitle()); }
    QString fieldLabel() const;
    QString fieldPrompt() const;
    QFont fieldFont() const;
    QString draft() const;
    QString addButton() const;
    bool canAdd() const;
    TextValue message() const { return textOf(&LetterEditor::message); }
    TextValue footnote() const { return textOf(&LetterEditor::footnote); }

    QString resetButton() const { return qtText(view_.resetButton().title); }
    bool canReset() const { return view_.resetButton().isEnabled; }
    bool isConfirmingReset() const { return view_.isConfirmingReset(); }
    QString dialogTitle() const { return qtText(SettingsView::resetDialog().title); }
    QString dialogConfirm() const { return qtText(SettingsView::resetDialog().confirm.title); }
    QString dialogCancel() const { return qtText(SettingsView::resetDialog().cancel.title); }

    void setDraft(const QString& draft);
    Q_INVOKABLE void select(int row);
    Q_INVOKABLE void addDraft();
    /// The control of the key in this row has been used.
    Q_INVOKABLE void use(int row);
    Q_INVOKABLE void askToReset();
    Q_INVOKABLE void confirmReset();
    Q_INVOKABLE void cancelReset();

signals:
    void changed();

private:
    TextValue textOf(StyledText (LetterEditor::*part)() const) const;
    void refresh();

    SettingsView& view_;
    LetterRowsModel letters_;
    KeyRowsModel keys_;
    DelayedDrawing drawing_;
    Subscription changes_;
};

} // namespace vanoka
