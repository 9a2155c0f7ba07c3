// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <functional>
#include <span>
#include <string_view>
#include <vector>

#include "dialogs/PropertyForm.h"
#include "qt/dialogs/ColorButton.h"
#include "qt/dialogs/ThemedDialog.h"

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLineEdit;
class QRadioButton;
class QVBoxLayout;

namespace planview {

/// The window of a property form: builds its controls in tab order, and closes the form.
///
/// The form keeps the state. A control writes what the user does into the form at once; showState() shows what the form
/// holds. Return presses OK, Escape and the frame's button press Cancel.
class FormDialog : public ThemedDialog {
    Q_OBJECT

public:
    void setTheme(const GridTheme& theme) override;
    /// The controls are made when the window is first shown: the form has its texts by then.
    void setVisible(bool visible) override;
    void accept() override;
    void reject() override;

protected:
    FormDialog(PropertyForm& form, QWidget* parent);

    /// Makes the controls.
    virtual void build() = 0;
    /// A titled part of the window; its layout has the labels in column 0 and the fields in column 1.
    QGridLayout* addSection(QVBoxLayout& column, const QString& title);
    /// `caption` may hold a mnemonic, which leads to the field.
    void addRow(QGridLayout& section, const QString& caption, QWidget* field) const;
    QCheckBox* addCheckBox(QGridLayout& section, CheckBox& state, char mnemonic);
    /// One radio button for each option, in one line or one below the other; a mnemonic for each.
    void addOptions(QGridLayout& section, std::span<OptionButton> options, std::string_view mnemonics,
                    Qt::Orientation orientation);
    /// `width` in logical pixels.
    QComboBox* addList(QGridLayout& section, ListBox& state, const QString& caption, int width);
    QLineEdit* addText(QGridLayout& section, std::string& state, const QString& caption, int width);
    /// `click` leads to the choice of a colour.
    ColorButton* addColor(QGridLayout& section, ColorBox& state, char mnemonic, std::function<void()> click);
    [[nodiscard]] QVBoxLayout* content() const { return content_; }
    /// Shows in the controls what the form holds.
    virtual void showState();
    /// The user has changed something in the form.
    virtual void stateChanged() {}

private:
    void addOption(QGridLayout& section, QWidget* group, OptionButton& state, const QString& caption, int row,
                   int column);

    PropertyForm& form_;  // not touched once the window has ended
    QVBoxLayout* content_;
    GridTheme theme_ = GridTheme::light();
    bool built_ = false;
    std::vector<ColorButton*> colors_;
    std::vector<std::function<void()>> showers_;
};

}  // namespace planview
