// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>
#include <memory>
#include <vector>

#include "qt/macro/EditorButtons.h"
#include "qt/macro/EditorPane.h"
#include "qt/macro/MacroListView.h"

namespace planview {

/// The pane with the active macro: what can be done to it, its elements, and what there is to say about it. Leaving an
/// element out is a button of the macro toolbar.
class MacroPane final : public EditorPane {
    Q_OBJECT

public:
    /// `owner` as for EditorPane.
    MacroPane(MacroEditor& editor, GridBitmaps& bitmaps, std::shared_ptr<void> owner = nullptr,
              QWidget* parent = nullptr);

    [[nodiscard]] MacroListView& view() const { return *view_; }

    void follow() override;

private:
    void addButtons();
    void showLook() override;
    [[nodiscard]] std::unique_ptr<EditorPane> makeCopy() const override {
        return std::make_unique<MacroPane>(editor(), bitmaps());
    }

    // Children
    EditorButtons* buttons_;
    MacroListView* view_;
    QLabel* message_;
    QToolButton* preview_ = nullptr;
    QToolButton* before_ = nullptr;
    QToolButton* after_ = nullptr;
    QToolButton* inside_ = nullptr;
    std::vector<QToolButton*> needMacro_;
    std::vector<QToolButton*> needElement_;
};

}  // namespace planview
