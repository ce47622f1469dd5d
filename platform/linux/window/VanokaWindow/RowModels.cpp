#include "RowModels.h"

#include "Values.h"

namespace vanoka {

namespace {

enum LetterRole : int { letterRole = Qt::UserRole, keysRole, dotRole, spokenRole, sectionRole };
enum KeyRole : int { keyRole = Qt::UserRole, noteRole, controlRole };

} // namespace

QVariant LetterRowsModel::data(const QModelIndex& index, int role) const {
    const SidebarRow& row = rows().at(static_cast<std::size_t>(index.row()));
    switch (role) {
    case letterRole:
        return QVariant::fromValue(TextValue(row.letter.letterText()));
    case keysRole:
        return QVariant::fromValue(TextValue(row.letter.keysText()));
    case dotRole:
        return QVariant::fromValue(DotValue(row.letter.dot()));
    case spokenRole:
        return qtText(row.letter.spokenText());
    case sectionRole:
        return qtText(row.section);
    default:
        return {};
    }
}

QHash<int, QByteArray> LetterRowsModel::roleNames() const {
    return {{letterRole, "letter"},
            {keysRole, "keys"},
            {dotRole, "dot"},
            {spokenRole, "spoken"},
            {sectionRole, "section"}};
}

QVariant KeyRowsModel::data(const QModelIndex& index, int role) const {
    const KeyRow& row = rows().at(static_cast<std::size_t>(index.row())).key;
    switch (role) {
    case keyRole:
        return QVariant::fromValue(TextValue(row.keyText()));
    case noteRole:
        return QVariant::fromValue(TextValue(row.note()));
    case controlRole:
        return QVariant::fromValue(KeyControlValue(row));
    default:
        return {};
    }
}

QHash<int, QByteArray> KeyRowsModel::roleNames() const {
    return {{keyRole, "key"}, {noteRole, "note"}, {controlRole, "control"}};
}

} // namespace vanoka
