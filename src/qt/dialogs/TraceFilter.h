// SPDX-License-Identifier: MIT
#pragma once

#include <QSortFilterProxyModel>
#include <QStringList>

namespace planview {

/// Lets the entries through that hold all of some words, whatever the case of their letters.
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
