// SPDX-License-Identifier: MIT
#pragma once

#include <QPointer>
#include <QSplitter>
#include <array>

#include "layout/PaneLayout.h"
#include "qt/GuardedWidget.h"
#include "qt/grid/GridTheme.h"

namespace planview {

/// One of the control's splitters: two panes, and between them a handle while both are shown. Stands where the layout
/// says, whatever its size, and tells the layout where the user moves it.
class PaneSplitter final : public GuardedWidget<QSplitter> {
    Q_OBJECT

public:
    static constexpr int HandleWidth = 7;

    PaneSplitter(Splitter which, Qt::Orientation orientation, PaneLayout& layout);

    void setTheme(const GridTheme& theme);
    [[nodiscard]] const GridTheme& theme() const { return theme_; }
    /// Takes the position from the layout.
    void follow();
    /// The keyboard goes to the handle; false where there is none to be seen. `before` is what it goes back to, without
    /// one what has it now.
    bool takeKeyboard(QWidget* before);
    [[nodiscard]] QWidget* before() const { return before_; }
    [[nodiscard]] bool hasKeyboard() const;
    /// What the keys do there. False for those that do nothing.
    bool handleKey(int key);
    /// The user has released the handle.
    void handleReleased();

    /// Where the two panes and the handle between them stand within a rectangle; a pane that is not shown is empty.
    struct Places {
        std::array<QRect, 2> panes;
        QRect handle;
    };
    [[nodiscard]] Places placesIn(const QRect& rect) const;
    void paintHandle(QPainter& painter, const QRect& rect, bool pointedAt) const;

protected:
    QSplitterHandle* createHandle() override;
    bool handleEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] bool bothShown() const;

    Splitter which_;
    PaneLayout& layout_;
    void nameHandle();

    GridTheme theme_ = GridTheme::light();
    QPointer<QWidget> before_;  ///< what had the keyboard before the handle
};

}  // namespace planview
