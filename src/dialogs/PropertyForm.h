// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include <planview/Export.h>
#include <planview/Platform.h>

#include "dialogs/FormControls.h"

namespace planview {

/// What the property dialogs have in common: the two buttons that end them and the way to a colour.
///
/// A form is filled by its opener, shown modally, and read by its opener when `ButtonPressed` is "OK". Closing the
/// window in any other way than by the OK button is Cancel.
class PLANVIEW_EXPORT PropertyForm : public Form {
public:
    PropertyForm(Forms& forms, ColorChooser chooseColor) : forms_(forms), chooseColor_(std::move(chooseColor)) {}

    /// "OK" or "CANCEL".
    std::string ButtonPressed = "CANCEL";
    std::string cmdOkCaption;
    std::string cmdCancelCaption;

    void Form_Load();
    void Form_Unload();
    /// Hides the form, or leaves it open where what was entered cannot be taken.
    void cmdOk_Click();
    void cmdCancel_Click();

    /// The label of the form's own trace entries.
    [[nodiscard]] virtual std::string_view TraceLabel() const noexcept = 0;

protected:
    /// The label of the entries of its buttons: the grid's and the row's dialog share one.
    [[nodiscard]] virtual std::string_view ButtonLabel() const noexcept { return "FRMGRID"; }
    /// Fills the form's lists.
    virtual void OnLoad() {}
    /// Whether what was entered can be taken; tells the user where it cannot.
    [[nodiscard]] virtual bool Accept() { return true; }

    void Click(ColorBox& box) const { box.Click(chooseColor_); }
    void SetButtonTexts();

private:
    void Close(std::string_view button, std::string_view entry);

    Forms& forms_;
    ColorChooser chooseColor_;
};

/// Loads a form and unloads it at the end, whatever happens between.
class LoadedForm {
public:
    LoadedForm(Forms& forms, PropertyForm& form);
    ~LoadedForm();
    LoadedForm(const LoadedForm&) = delete;
    LoadedForm& operator=(const LoadedForm&) = delete;

private:
    Forms& forms_;
    PropertyForm& form_;
};

}  // namespace planview
