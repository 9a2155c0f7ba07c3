// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QWidget>
#include <array>
#include <functional>
#include <utility>

#include "layout/PaneLayout.h"
#include "macro/editor/MacroEditor.h"
#include "qt/grid/GridTheme.h"

namespace planview {

class BarredPane;
class ChartView;
class GridView;
class MacroPane;
class OperandPane;
class PaneSplitter;
class ToolbarView;
class TreePane;

/// Holds the control's panes and shows those that the layout says.
class PaneHost final : public QWidget, private PaneWatcher, private MacroEditorWatcher {
    Q_OBJECT

public:
    /// The panes, made elsewhere; the host takes ownership of them.
    struct Panes {
        GridView* grid;
        ChartView* chart;
        TreePane* tree;
        ToolbarView* toolbar;
        MacroPane* macro;
        OperandPane* operands;
    };
    PaneHost(PaneLayout& layout, MacroEditor& editor, const Panes& panes, QWidget* parent = nullptr);
    ~PaneHost() override;

    void setTheme(const GridTheme& theme);
    /// The keyboard goes to the first or to the last pane that is shown.
    void enter(bool first);
    /// Asked when the user goes on behind the last pane, or back before the first: whether the keyboard is elsewhere
    /// now. Otherwise it goes round.
    void setLeave(std::function<bool(bool forward)> leave) { leave_ = std::move(leave); }
    /// All visible panes in another size in logical pixels; works without being shown.
    [[nodiscard]] QImage renderToImage(QSize size, qreal scale) const;

private:
    void PanesChanged() override;
    void PaneWanted(PaneGoal goal) override;
    void EditorChanged() override;
    void EditorOpened() override;
    [[nodiscard]] std::array<QWidget*, 6> panes() const;
    void goOn(int step);
    void goToNextSplitter();
    void showRowDots();
    void paintPane(QPainter& painter, QWidget* pane, const QRect& rect, qreal scale) const;
    PaneSplitter* addSplitter(Splitter which, const char* name, Qt::Orientation orientation, QWidget* first,
                              QWidget* second);

    PaneLayout& layout_;
    MacroEditor& macroEditor_;
    GridView* gridView_;
    std::array<PaneSplitter*, SplitterCount> splitters_{};
    ChartView* chart_;
    TreePane* tree_;
    ToolbarView* toolbar_;
    MacroPane* macro_;
    OperandPane* operands_;
    std::function<bool(bool forward)> leave_;
    BarredPane* editor_ = nullptr;  ///< the macro editor: the toolbar above list and operands
};

}  // namespace planview
