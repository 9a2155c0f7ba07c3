// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractListModel>
#include <QListView>
#include <QStyledItemDelegate>

#include "macro/editor/MacroEditor.h"
#include "qt/GuardedWidget.h"
#include "qt/grid/GridBitmaps.h"
#include "qt/grid/GridTheme.h"

namespace planview {

/// `MacroView`: the elements of the active macro as sentences, each as deep as it stands in the macro.
class MacroListView final : public GuardedView<QListView> {
    Q_OBJECT

public:
    MacroListView(MacroEditor& editor, GridBitmaps& bitmaps, EntryGuard pane, QWidget* parent = nullptr);

    void setLook(const GridTheme& theme, double scale);
    /// Shows what the editor holds now.
    void follow();
    /// Lets the user edit the current element's name.
    void editName();

    [[nodiscard]] QSize minimumSizeHint() const override { return {40, 28}; }

Q_SIGNALS:
    void deleteWanted();
    void moveWanted(bool up);
    void runWanted();

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    class Elements;
    class Painter;

    MacroEditor& editor_;
    Elements* elements_;
    Painter* painter_;
    bool following_ = false;
};

}  // namespace planview
