// SPDX-License-Identifier: MIT
#pragma once

#include <QPersistentModelIndex>
#include <optional>
#include <set>

#include "qt/dialogs/ThemedDialog.h"
#include "trace/frmTrace.h"

class QAction;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QMenu;
class QMenuBar;

namespace planview {

class RowList;
class TraceFilter;
class TraceModel;

/// The trace window: shows the entries as they are written. While it follows, the newest one is the current one; when
/// the user goes to another or scrolls up, what he reads stays where it is. Ends itself when its form does.
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
    void setFollowing(bool on);
    void keepPlace();
    void follow();
    void showNewest();
    void fitLabels();
    void showSystem();
    void copySelected() const;
    void runMenu(int index);

    std::shared_ptr<frmTrace> form_;  ///< until it ends
    TraceModel* model_;
    TraceFilter* filter_;
    QMenuBar* menus_ = nullptr;
    QMenu* edit_ = nullptr;
    QAction* onTop_ = nullptr;
    RowList* list_ = nullptr;
    QWidget* filterLine_ = nullptr;
    QLineEdit* words_ = nullptr;
    QComboBox* where_ = nullptr;
    QCheckBox* follow_ = nullptr;
    QLabel* count_ = nullptr;
    QLabel* system_ = nullptr;
    bool following_ = true;
    bool reporting_ = false;
    bool fitting_ = false;
    std::set<int> sizedByUser_;                      ///< columns
    std::optional<QPersistentModelIndex> topEntry_;  ///< on the screen, while changes are reported
};

}  // namespace planview
