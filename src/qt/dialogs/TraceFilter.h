// SPDX-License-Identifier: MIT
#pragma once

#include <QSortFilterProxyModel>
#include <QStringList>

namespace planview {

/// Passes the entries that contain all of the given words, ignoring case.
class TraceFilter final : public QSortFilterProxyModel {
    Q_OBJECT

public:
    /// Where the words are looked for.
    enum class In { Anywhere, Control, Method, Text };

    using QSortFilterProxyModel::QSortFilterProxyModel;

    void setWords(const QString& text, In where);
    [[nodiscard]] bool isOn() const { return !words_.isEmpty(); }

protected:
    [[nodiscard]] bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

private:
    QStringList words_;
    In where_ = In::Anywhere;
};

}  // namespace planview
