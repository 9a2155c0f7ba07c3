// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <string>
#include <string_view>

#include "qt/GuardedWidget.h"
#include "qt/grid/GridTheme.h"

class QPushButton;
class QVBoxLayout;

namespace planview {

/// A window of the control that has the colours of the control's view, whatever the desktop's are.
class ThemedDialog : public GuardedWidget<QDialog> {
    Q_OBJECT

public:
    /// `label` is that of the form's trace entries.
    ThemedDialog(std::string_view label, QWidget* parent) : GuardedWidget(EntryGuard(label), parent) {
        setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    }

    virtual void setTheme(const GridTheme& theme);
    /// Lets go of the form, which may be gone after this call, and hides. The window is deleted when all of its own
    /// handlers have returned.
    virtual void endForm();
    [[nodiscard]] bool hasEnded() const { return ended_; }

protected:
    /// Return presses the button that has the focus; elsewhere it presses the default one.
    void keyPressEvent(QKeyEvent* event) override;
    /// Adds OK, which is the default button, and Cancel; they call accept() and reject(). Answers the OK button.
    QPushButton* addButtons(QVBoxLayout& layout, const std::string& ok, const std::string& cancel);
    /// The window's usual size, or what a small screen has room for.
    void resizeOnScreen(QSize usual);

private:
    bool ended_ = false;
};

/// The text with the first of this letter as its mnemonic; "&" in the text itself is shown verbatim.
[[nodiscard]] QString withMnemonic(const std::string& text, char letter);

}  // namespace planview
