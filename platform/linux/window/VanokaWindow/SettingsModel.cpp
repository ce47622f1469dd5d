#include "SettingsModel.h"

#include "Typography.h"

#include <QGuiApplication>

#include <algorithm>

namespace vanoka {

namespace {

std::vector<SidebarRow> sidebarRows(const SettingsView& view) {
    std::vector<SidebarRow> rows;
    for (auto& section : view.sidebar())
        for (auto& letter : section.rows)
            rows.push_back({std::move(letter), section.title.text});
    return rows;
}

std::vector<EditorRow> editorRows(const SettingsView& view) {
    std::vector<EditorRow> rows;
    if (view.editor())
        for (auto& key : view.editor()->keyRows())
            rows.push_back({std::move(key)});
    return rows;
}

} // namespace

SettingsModel::SettingsModel(SettingsView& view, QObject* parent)
    : QObject(parent),
      view_(view),
      drawing_(
          [this] { QMetaObject::invokeMethod(this, [this] { drawing_.drawIfDue(); }, Qt::QueuedConnection); },
          [this] { refresh(); }),
      changes_(view.observe([this] { drawing_.drawSoon(); })) {
    letters_.assign(sidebarRows(view_));
    keys_.assign(editorRows(view_));
}

TextValue SettingsModel::sectionTitle(const QString& name) const {
    for (const auto& section : view_.sidebar())
        if (qtText(section.title.text) == name)
            return TextValue(section.title);
    return {};
}

int SettingsModel::selectedRow() const {
    const auto& rows = letters_.rows();
    const auto chosen = std::ranges::find_if(
        rows, [this](const SidebarRow& row) { return view_.selection() == row.letter.letter.id; });
    return chosen == rows.end() ? -1 : static_cast<int>(chosen - rows.begin());
}

QVariantList SettingsModel::links() const {
    QVariantList values;
    for (const Link& link : view_.footer().links)
        values.append(QVariant::fromValue(LinkValue(link)));
    return values;
}

QString SettingsModel::fieldLabel() const {
    return hasEditor() ? qtText(view_.editor()->field().label) : QString();
}

QString SettingsModel::fieldPrompt() const {
    return hasEditor() ? qtText(view_.editor()->field().prompt) : QString();
}

QFont SettingsModel::fieldFont() const {
    return hasEditor() ? fontOf(view_.editor()->field().font) : QFont();
}

QString SettingsModel::draft() const {
    return hasEditor() ? qtText(view_.editor()->draft()) : QString();
}

QString SettingsModel::addButton() const {
    return hasEditor() ? qtText(view_.editor()->addButton().title) : QString();
}

bool SettingsModel::canAdd() const {
    return hasEditor() && view_.editor()->addButton().isEnabled;
}

void SettingsModel::setDraft(const QString& draft) {
    view_.setDraft(draft.toStdString());
    drawing_.drawIfDue();
}

void SettingsModel::select(int row) {
    const auto& rows = letters_.rows();
    if (row < 0 || row >= letters_.rowCount())
        view_.select(std::nullopt);
    else
        view_.select(std::string(rows[static_cast<std::size_t>(row)].letter.letter.id));
    drawing_.drawIfDue();
}

void SettingsModel::addDraft() {
    view_.addDraft();
    drawing_.drawIfDue();
}

void SettingsModel::use(int row) {
    if (row >= 0 && row < keys_.rowCount())
        view_.perform(keys_.rows()[static_cast<std::size_t>(row)].key.edit());
}

void SettingsModel::askToReset() {
    view_.askToReset();
}

void SettingsModel::confirmReset() {
    view_.confirmReset();
}

void SettingsModel::cancelReset() {
    view_.cancelReset();
}

TextValue SettingsModel::textOf(StyledText (LetterEditor::*part)() const) const {
    return hasEditor() ? TextValue((view_.editor()->*part)()) : TextValue();
}

void SettingsModel::refresh() {
    letters_.assign(sidebarRows(view_));
    keys_.assign(editorRows(view_));
    emit changed();
}

} // namespace vanoka
