// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <functional>
#include <memory>

#include "macro/editor/MacroEditor.h"
#include "qt/GuardedWidget.h"
#include "qt/grid/GridBitmaps.h"
#include "qt/grid/GridTheme.h"
#include "qt/panes/PaneHeading.h"

namespace planview {

/// A pane that shows the macro editor or changes it, below a heading.
class EditorPane : public GuardedWidget<QWidget> {
    Q_OBJECT

public:
    void setTheme(const GridTheme& theme);
    void setTextScale(double scale);
    /// Shows what the editor holds now.
    virtual void follow() = 0;
    /// Paints the pane elsewhere, whether or not it is shown.
    void paintOn(QPainter& painter, const QRect& rect) const;

    [[nodiscard]] QSize minimumSizeHint() const override { return {40, 28}; }

protected:
    /// `owner` keeps the editor alive while the pane handles an input: the host may delete the pane from inside an
    /// event. It may be null if the editor outlives the pane.
    EditorPane(const QString& heading, MacroEditor& editor, GridBitmaps& bitmaps, std::shared_ptr<void> owner,
               QWidget* parent);

    void paintEvent(QPaintEvent* event) override;

    [[nodiscard]] MacroEditor& editor() const { return editor_; }
    [[nodiscard]] GridBitmaps& bitmaps() const { return bitmaps_; }
    [[nodiscard]] const GridTheme& theme() const { return theme_; }
    [[nodiscard]] double scale() const { return scale_; }
    [[nodiscard]] int scaled(int logical) const { return qRound(logical * scale_); }
    [[nodiscard]] PaneHeading* heading() const { return heading_; }

    /// Runs the action on the editor and shows the result. The host hears of it and may delete the pane.
    void act(const std::function<void(MacroEditor&)>& action);
    /// Gives the parts their colours and sizes; derived classes add their style sheets.
    virtual void showLook();
    [[nodiscard]] virtual std::unique_ptr<EditorPane> makeCopy() const = 0;

private:
    MacroEditor& editor_;
    GridBitmaps& bitmaps_;
    GridTheme theme_ = GridTheme::light();
    double scale_ = 1.0;
    PaneHeading* heading_;  // a child
};

}  // namespace planview
