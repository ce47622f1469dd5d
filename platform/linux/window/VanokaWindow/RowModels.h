#pragma once

#include "ChangingRows.h"
#include "KeyRow.h"
#include "LetterRow.h"

#include <QHash>
#include <QtQml/qqmlregistration.h>

#include <string>

namespace vanoka {

/// The rows of the sidebar: every letter with the title of its section.
struct SidebarRow {
    LetterRow letter;
    std::string section;
    friend bool operator==(const SidebarRow&, const SidebarRow&) = default;
    static bool isSame(const SidebarRow& left, const SidebarRow& right) {
        return left.letter.letter.id == right.letter.letter.id;
    }
};

class LetterRowsModel : public ChangingRows<SidebarRow> {
    Q_OBJECT
    QML_ANONYMOUS

public:
    using ChangingRows::ChangingRows;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;
};

/// The rows of a letter's keys.
struct EditorRow {
    KeyRow key;
    friend bool operator==(const EditorRow&, const EditorRow&) = default;
    static bool isSame(const EditorRow& left, const EditorRow& right) {
        return left.key.state.key == right.key.state.key && left.key.letter.id == right.key.letter.id;
    }
};

class KeyRowsModel : public ChangingRows<EditorRow> {
    Q_OBJECT
    QML_ANONYMOUS

public:
    using ChangingRows::ChangingRows;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;
};

} // namespace vanoka
