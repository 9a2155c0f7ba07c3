// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QPainter>
#include <string>

#include "components/TreeControl.h"
#include "qt/grid/GridBitmaps.h"
#include "qt/grid/GridTheme.h"

namespace planview {

/// Draws the rows of a tree: chevron, picture and text. The same for the screen and for pictures.
class TreeRowPainter {
public:
    explicit TreeRowPainter(GridBitmaps& bitmaps) : bitmaps_(bitmaps) {}

    void setTheme(const GridTheme& theme) { theme_ = theme; }
    [[nodiscard]] const GridTheme& theme() const { return theme_; }
    void setTextScale(double scale) { scale_ = scale; }

    /// What only the view knows of a row.
    struct State {
        int level = 0;
        bool hasChildren = false;
        bool focused = false;  ///< the tree has the focus
        bool hovered = false;
    };
    /// `row` begins where a node of the top level begins.
    void paint(QPainter& painter, const QRect& row, TreeNode node, const State& state) const;

    // In logical pixels.
    [[nodiscard]] int rowHeight() const;
    [[nodiscard]] int indentation() const;
    /// From the start of a row at this level to its text.
    [[nodiscard]] int textLeft(int level, bool hasPicture) const;
    [[nodiscard]] QFont font(const QFont& base) const;
    [[nodiscard]] bool hasPicture(TreeNode node) const;

private:
    [[nodiscard]] int scaled(int logical) const { return qRound(logical * scale_); }
    [[nodiscard]] const QPixmap& picture(TreeNode node, qreal ratio) const;
    void paintChevron(QPainter& painter, const QRect& place, bool open) const;

    GridBitmaps& bitmaps_;
    GridTheme theme_ = GridTheme::light();
    double scale_ = 1.0;
};

/// The file of the picture that a host names: the name itself, or a node type such as "M_TABLINE".
[[nodiscard]] std::string pictureName(const std::string& name);

}  // namespace planview
