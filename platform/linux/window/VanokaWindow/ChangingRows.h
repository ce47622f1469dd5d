#pragma once

#include <QAbstractListModel>

#include <algorithm>
#include <utility>
#include <vector>

namespace vanoka {

/// The rows of a list that are read anew as a whole. Views hear only of the rows that have changed, come or
/// gone, so that what the user has before him neither flickers nor loses the keyboard. `isSame` tells whether
/// two rows stand for the same thing, whatever they say about it.
template <class Row>
class ChangingRows : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(rows_.size());
    }

    const std::vector<Row>& rows() const noexcept { return rows_; }

    void assign(std::vector<Row> rows) {
        const auto [kept, known] = std::ranges::mismatch(rows, rows_, isSame);
        const auto start = kept - rows.begin();
        const auto keptAtEnd =
            std::ranges::mismatch(std::reverse_iterator(rows.end()), std::reverse_iterator(kept),
                                  std::reverse_iterator(rows_.end()), std::reverse_iterator(known), isSame)
                .in1 -
            std::reverse_iterator(rows.end());
        removeBetween(start, static_cast<std::ptrdiff_t>(rows_.size()) - keptAtEnd);
        insertFrom(rows, start, static_cast<std::ptrdiff_t>(rows.size()) - keptAtEnd);
        for (std::size_t i = 0; i < rows.size(); ++i)
            replace(i, std::move(rows[i]));
    }

private:
    static bool isSame(const Row& left, const Row& right) { return Row::isSame(left, right); }

    void removeBetween(std::ptrdiff_t first, std::ptrdiff_t end) {
        if (first == end)
            return;
        beginRemoveRows({}, static_cast<int>(first), static_cast<int>(end - 1));
        rows_.erase(rows_.begin() + first, rows_.begin() + end);
        endRemoveRows();
    }

    void insertFrom(const std::vector<Row>& rows, std::ptrdiff_t first, std::ptrdiff_t end) {
        if (first == end)
            return;
        beginInsertRows({}, static_cast<int>(first), static_cast<int>(end - 1));
        rows_.insert(rows_.begin() + first, rows.begin() + first, rows.begin() + end);
        endInsertRows();
    }

    void replace(std::size_t position, Row row) {
        if (rows_[position] == row)
            return;
        rows_[position] = std::move(row);
        const QModelIndex changed = index(static_cast<int>(position));
        emit dataChanged(changed, changed);
    }

    std::vector<Row> rows_;
};

} // namespace vanoka
