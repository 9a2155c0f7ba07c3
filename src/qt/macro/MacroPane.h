// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <QWidget>
#include <functional>
#include <memory>

#include "macro/editor/MacroEditor.h"
#include "qt/macro/EditorButtons.h"
#include "qt/macro/MacroListView.h"
#include "qt/panes/PaneHeading.h"

namespace planview {

/// The pane with the active macro: what can be done to it, its elements, and what there is to say about it. Leaving an
/// element out is a button of the macro toolbar.
class MacroPane final : public QWidget {
    Q_OBJECT

public:
    /// `owner` keeps the editor alive while the pane handles an input: the host may delete the pane from inside an
    /// event. It may be null where the editor outlives the pane anyway.
    MacroPane(MacroEditor& editor, GridBitmaps& bitmaps, std::shared_ptr<void> owner = nullptr,
              QWidget* parent = nullptr);

    [[nodiscard]] MacroListView& view() const { return *view_; }

    void setTheme(const GridTheme& theme);
    void setTextScale(double scale);
    /// Shows what the editor holds now.
    void follow();
    /// Paints the pane into another place, whether it is shown or not.
    void paintOn(QPainter& painter, const QRect& rect) const;

    [[nodiscard]] QSize minimumSizeHint() const override { return {40, 28}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void addButtons();
    void act(const std::function<void(MacroEditor&)>& action);
    void showLook();

    MacroEditor& editor_;
    GridBitmaps& bitmaps_;
    std::shared_ptr<void> owner_;
    GridTheme theme_ = GridTheme::light();
    double scale_ = 1.0;
    // Children
    PaneHeading* heading_;
    EditorButtons* buttons_;
    MacroListView* view_;
    QLabel* message_;
    QToolButton* before_ = nullptr;
    QToolButton* after_ = nullptr;
    QToolButton* inside_ = nullptr;
    std::vector<QToolButton*> needMacro_;
    std::vector<QToolButton*> needElement_;
};

}  // namespace planview
