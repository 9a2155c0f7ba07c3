// SPDX-License-Identifier: MIT
#include "qt/macro/EditorPane.h"

#include <QPainter>
#include <QPointer>
#include <utility>

namespace planview {

EditorPane::EditorPane(const QString& heading, MacroEditor& editor, GridBitmaps& bitmaps, std::shared_ptr<void> owner,
                       QWidget* parent)
    : GuardedWidget(EntryGuard(MacroEditor::Label, std::move(owner)), parent),
      editor_(editor),
      bitmaps_(bitmaps),
      heading_(new PaneHeading(heading, this)) {
    setAccessibleName(heading);
}

void EditorPane::setTheme(const GridTheme& theme) {
    theme_ = theme;
    showLook();
}

void EditorPane::setTextScale(double scale) {
    scale_ = scale;
    showLook();
}

void EditorPane::showLook() {
    setPalette(theme_.widgetPalette(palette()));
    heading_->setTheme(theme_);
    heading_->setTextScale(scale_);
    update();
}

void EditorPane::act(const std::function<void(MacroEditor&)>& action) {
    guard().run("ButtonClick", [&] {
        const QPointer<EditorPane> self(this);
        action(editor_);
        if (self) {
            follow();
        }
    });
}

void EditorPane::paintEvent(QPaintEvent* /*event*/) {
    QPainter(this).fillRect(rect(), QColor(theme_.panel));
}

void EditorPane::paintOn(QPainter& painter, const QRect& rect) const {
    const std::unique_ptr<EditorPane> copy = makeCopy();
    copy->scale_ = scale_;
    copy->setTheme(theme_);
    copy->resize(rect.size());
    copy->render(&painter, rect.topLeft());
}

}  // namespace planview
