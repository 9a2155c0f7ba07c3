// SPDX-License-Identifier: MIT
#pragma once

#include "qt/dialogs/ThemedDialog.h"
#include "trace/frmTrace.h"

class QAction;
class QComboBox;
class QLabel;
class QLineEdit;
class QMenu;
class QMenuBar;
class QTreeView;

namespace planview {

class TraceFilter;
class TraceModel;

/// The trace window: shows the entries as they are written and follows the newest one while that is the current one.
/// Ends itself when its form does.
class TraceDialog final : public ThemedDialog {
    Q_OBJECT

public:
    explicit TraceDialog(frmTrace& form, QWidget* parent = nullptr);
    ~TraceDialog() override;

    void setTheme(const GridTheme& theme) override;
    void endForm() override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void buildMenus();
    void buildList();
    void buildFilterLine();
    [[nodiscard]] int toPixels(int twips) const;
    [[nodiscard]] int toTwips(int pixels) const;
    void layOut();
    void placeOnTop(bool onTop);
    void takeOnTop();
    void filter();
    void showCount();
    void follow();
    void showNewest();
    void copySelected() const;
    void runMenu(int index);

    std::shared_ptr<frmTrace> form_;  ///< until it ends
    TraceModel* model_;
    TraceFilter* filter_;
    QMenuBar* menus_ = nullptr;
    QMenu* edit_ = nullptr;
    QAction* onTop_ = nullptr;
    QTreeView* list_ = nullptr;
    QWidget* filterLine_ = nullptr;
    QLineEdit* words_ = nullptr;
    QComboBox* where_ = nullptr;
    QLabel* count_ = nullptr;
    bool following_ = true;
    bool reporting_ = false;
};

}  // namespace planview
