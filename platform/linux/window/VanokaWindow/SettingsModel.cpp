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
            rows.push_back({std::move(letter), std::string(section.title)});
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
    : QObject(parent), view_(view), changes_(view.observe([this] { refreshSoon(); })) {
    letters_.assign(sidebarRows(view_));
    keys_.assign(editorRows(view_));
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
    refreshIfPending();
}

void SettingsModel::select(int row) {
    const auto& rows = letters_.rows();
    if (row < 0 || row >= letters_.rowCount())
        view_.select(std::nullopt);
    else
        view_.select(std::string(rows[static_cast<std::size_t>(row)].letter.letter.id));
    refreshIfPending();
}

void SettingsModel::addDraft() {
    view_.addDraft();
    refreshIfPending();
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

/// The settings announce a change before it is in force: it is read when the event loop has turned.
void SettingsModel::refreshSoon() {
    if (std::exchange(isRefreshPending_, true))
        return;
    QMetaObject::invokeMethod(this, &SettingsModel::refreshIfPending, Qt::QueuedConnection);
}

void SettingsModel::refreshIfPending() {
    if (std::exchange(isRefreshPending_, false))
        refresh();
}

void SettingsModel::refresh() {
    letters_.assign(sidebarRows(view_));
    keys_.assign(editorRows(view_));
    emit changed();
}

} // namespace vanoka
