// SPDX-License-Identifier: MIT
#pragma once

#include <QToolButton>
#include <QWidget>
#include <array>
#include <functional>
#include <memory>

#include "macro/tree/MacroToolbar.h"
#include "qt/GuardedWidget.h"
#include "qt/grid/GridBitmaps.h"
#include "qt/grid/GridTheme.h"

namespace planview {

class SelectionButton;

/// The macro toolbar: one button per kind of macro element, and one from which the grid's selection is dragged. The
/// buttons stand in as many rows as the width needs and the height has; those that do not fit are in the menu of the
/// last one.
class ToolbarView final : public GuardedWidget<QWidget>, private ToolbarWatcher {
    Q_OBJECT

public:
    /// `selection` answers the grid's selection as text. `owner` keeps the toolbar alive while the view handles an
    /// input.
    ToolbarView(MacroToolbar& toolbar, GridBitmaps& bitmaps, std::function<std::string()> selection,
                std::shared_ptr<void> owner = nullptr, QWidget* parent = nullptr);
    ~ToolbarView() override;

    [[nodiscard]] QToolButton* button(ToolbarButton which) const;

    void setTheme(const GridTheme& theme);
    void setTextScale(double scale);
    /// Paints the toolbar elsewhere.
    void paintOn(QPainter& painter, const QRect& rect) const;

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void ToolbarChanged() override;
    void showIcons();
    [[nodiscard]] int scaled(int logical) const { return qRound(logical * scale_); }
    /// Where each button stands in a toolbar of this width.
    [[nodiscard]] std::vector<QRect> placesIn(int width) const;
    void fillMenu();

    MacroToolbar& toolbar_;
    GridBitmaps& bitmaps_;
    GridTheme theme_ = GridTheme::light();
    double scale_ = 1.0;
    std::vector<QToolButton*> buttons_;  // children: the selection's, then as ToolbarButton
    QToolButton* more_;                  // a child
};

}  // namespace planview
