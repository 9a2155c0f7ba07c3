// SPDX-License-Identifier: MIT
#pragma once

#include <QSortFilterProxyModel>
#include <QStringList>

namespace planview {

/// Passes the entries that contain all of the given words, ignoring case.
class TraceFilter final : public QSortFilterProxyModel {
    Q_OBJECT

public:
    static constexpr int AnyColumn = -1;

    using QSortFilterProxyModel::QSortFilterProxyModel;

    /// The words are looked for in this column of the source, or in AnyColumn.
    void setWords(const QString& text, int column);
    [[nodiscard]] bool isOn() const { return !words_.isEmpty(); }

protected:
    [[nodiscard]] bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

private:
    QStringList words_;
    int column_ = AnyColumn;
};

}  // namespace planview
