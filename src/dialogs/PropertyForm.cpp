// SPDX-License-Identifier: MIT
#include "dialogs/PropertyForm.h"

#include "trace/ErrorTrap.h"
#include "trace/modPlan.h"

namespace planview {

using modPlan::TraceWrite;

void PropertyForm::Form_Load() {
    ErrorTrap(TraceLabel(), "Form_Load", [this] {
        TraceWrite(TraceLabel(), "{}", "Form_Load", "");
        OnLoad();
    });
}

void PropertyForm::Form_Unload() {
    TraceWrite(TraceLabel(), "{}", "Form_Unload", "");
}

void PropertyForm::cmdOk_Click() {
    if (Accept()) {
        Close("OK", "Ok button pressed");
    }
}

void PropertyForm::cmdCancel_Click() {
    Close("CANCEL", "Cancel button pressed");
}

void PropertyForm::SetButtonTexts() {
    cmdOkCaption = "OK";
    cmdCancelCaption = "Cancel";
}

void PropertyForm::Close(std::string_view button, std::string_view entry) {
    ButtonPressed = button;
    forms_.Hide(*this);
    TraceWrite(ButtonLabel(), "{}", entry, "");
}

LoadedForm::LoadedForm(Forms& forms, PropertyForm& form) : forms_(forms), form_(form) {
    form_.Form_Load();
    forms_.Load(form_);
}

LoadedForm::~LoadedForm() {
    ResumeNext([this] { forms_.Unload(form_); }, [this] { form_.Form_Unload(); });
}

}  // namespace planview
