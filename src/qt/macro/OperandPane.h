// SPDX-License-Identifier: MIT
#pragma once

#include <QCompleter>
#include <QLineEdit>
#include <QPushButton>
#include <QStringListModel>
#include <QToolButton>
#include <memory>
#include <vector>

#include "qt/macro/EditorPane.h"

class QGridLayout;
class QScrollArea;

namespace planview {

/// The pane from which elements are taken: `txtOpa` for a number or a line's caption, `cmdOpa` to take it, or what is
/// selected in the grid, and `cmdOpe`, the digits and operators, with the functions and conditions below.
class OperandPane final : public EditorPane {
    Q_OBJECT

public:
    /// `owner` as for EditorPane.
    OperandPane(MacroEditor& editor, GridBitmaps& bitmaps, std::shared_ptr<void> owner = nullptr,
                QWidget* parent = nullptr);

    void follow() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addField(QGridLayout& layout);
    void addKeys(QGridLayout& layout);
    void addMore(QGridLayout& layout);
    QToolButton* addKey(QGridLayout& layout, int row, int column, const QString& text, const QString& name);
    void addMenu(QToolButton* button);
    void type(const QString& digit);
    void showLook() override;
    [[nodiscard]] std::unique_ptr<EditorPane> makeCopy() const override {
        return std::make_unique<OperandPane>(editor(), bitmaps());
    }
    void fitKeys();
    void offerCompletions();

    // Children
    QScrollArea* area_;
    QWidget* body_;
    QLineEdit* field_ = nullptr;
    QPushButton* take_ = nullptr;
    QStringListModel* completions_;
    QCompleter* completer_ = nullptr;
    std::vector<QToolButton*> keys_;
};

}  // namespace planview
