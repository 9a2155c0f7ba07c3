// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>
#include <QStyledItemDelegate>

#include "qt/tree/TreeRowPainter.h"

namespace planview {

/// The sizes of a tree's rows, and the editor of a label. The view itself draws the rows.
class TreeDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    TreeDelegate(const TreeRowPainter& painter, QObject* parent) : QStyledItemDelegate(parent), painter_(painter) {}

    QSize sizeHint(const QStyleOptionViewItem& /*option*/, const QModelIndex& /*index*/) const override {
        return {painter_.rowHeight(), painter_.rowHeight()};
    }

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                          const QModelIndex& /*index*/) const override {
        auto* line = new QLineEdit(parent);
        const GridTheme& theme = painter_.theme();
        const auto name = [](QRgb color) { return QColor(color).name(); };
        line->setFont(painter_.font(parent->font()));
        line->setFrame(false);
        line->setStyleSheet(QStringLiteral("QLineEdit { background: %1; color: %2; border: 2px solid %3;"
                                           " border-radius: 4px; padding: 0px 3px; }")
                                .arg(name(theme.base), name(theme.text), name(theme.accent)));
        return line;
    }
    /// The text begins where the label shows it.
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* /*model*/, const QModelIndex& /*index*/) const override {
        Q_EMIT const_cast<TreeDelegate*>(this)->textEntered(static_cast<QLineEdit*>(editor)->text());
    }

Q_SIGNALS:
    void textEntered(const QString& text);

private:
    const TreeRowPainter& painter_;
};

}  // namespace planview
