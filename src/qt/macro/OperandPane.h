// SPDX-License-Identifier: MIT
#pragma once

#include <QCompleter>
#include <QLineEdit>
#include <QPushButton>
#include <QStringListModel>
#include <QToolButton>
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

#include "macro/editor/MacroEditor.h"
#include "qt/grid/GridBitmaps.h"
#include "qt/panes/PaneHeading.h"

class QGridLayout;
class QScrollArea;

namespace planview {

/// The pane from which elements are taken: `txtOpa` for a number or a line's caption, `cmdOpa` to take it, or what is
/// selected in the grid, and `cmdOpe`, the digits and operators, with the functions and conditions below.
class OperandPane final : public QWidget {
    Q_OBJECT

public:
    /// `owner` as for MacroPane.
    OperandPane(MacroEditor& editor, GridBitmaps& bitmaps, std::shared_ptr<void> owner = nullptr,
                QWidget* parent = nullptr);

    void setTheme(const GridTheme& theme);
    void setTextScale(double scale);
    /// Shows what the editor holds now.
    void follow();
    /// Paints the pane into another place, whether it is shown or not.
    void paintOn(QPainter& painter, const QRect& rect) const;

    [[nodiscard]] QSize minimumSizeHint() const override { return {40, 28}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addField(QGridLayout& layout);
    void addKeys(QGridLayout& layout);
    void addMore(QGridLayout& layout);
    QToolButton* addKey(QGridLayout& layout, int row, int column, const QString& text, const QString& name);
    void addMenu(QToolButton* button);
    void act(const std::function<void(MacroEditor&)>& action);
    void type(const QString& digit);
    void showLook();
    void fitKeys();

    MacroEditor& editor_;
    GridBitmaps& bitmaps_;
    std::shared_ptr<void> owner_;
    GridTheme theme_ = GridTheme::light();
    double scale_ = 1.0;
    // Children
    PaneHeading* heading_;
    QScrollArea* area_;
    QWidget* body_;
    QLineEdit* field_ = nullptr;
    QPushButton* take_ = nullptr;
    QStringListModel* completions_;
    QCompleter* completer_ = nullptr;
    std::vector<QToolButton*> keys_;
};

}  // namespace planview
