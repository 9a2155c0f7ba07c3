// SPDX-License-Identifier: MIT
#include "dialogs/frmUpload.h"

#include <algorithm>

#include "automation/Texts.h"
#include "trace/TraceText.h"

namespace planview {

namespace {

std::string FileNameOf(const std::string& path) {
    const std::size_t slash = path.find_last_of("/\\");
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

}  // namespace

void frmUpload::Set_Text() {
    SetButtonTexts();
    ticked_ = 0;
    for (UploadChange& change : preview_.changes) {
        change.taken = change.taken && !change.IsRefused();
        ticked_ += change.taken ? 1 : 0;
    }
    const auto refused = static_cast<int>(std::count_if(preview_.changes.begin(), preview_.changes.end(),
                                                        [](const UploadChange& each) { return each.IsRefused(); }));
    lblFile = FileNameOf(preview_.file);
    if (!preview_.sheet.empty()) {
        lblFile += ", sheet " + preview_.sheet;
    }
    lblSummary = Counted(static_cast<int>(preview_.changes.size()) - refused, "changed value");
    if (refused > 0) {
        lblSummary += ", " + std::to_string(refused) + " refused";
    }
    NameButton();
    if (modPlan::TraceEnabled) {
        modPlan::TraceWrite(TraceLabel(), "", "Set_Text", TraceText("{value: ", Caption(), "}"));
    }
}

void frmUpload::Tick(std::size_t place, bool on) {
    UploadChange& change = preview_.changes.at(place);
    const bool taken = on && !change.IsRefused();
    ticked_ += (taken ? 1 : 0) - (change.taken ? 1 : 0);
    change.taken = taken;
    NameButton();
}

void frmUpload::NameButton() {
    cmdOkCaption = "Apply " + Counted(ticked_, "change");
}

bool ConfirmUpload(Forms& forms, UploadPreview& preview) {
    frmUpload form(forms, preview);
    const LoadedForm loaded(forms, form);
    form.Set_Text();
    forms.ShowModal(form);
    return form.ButtonPressed == "OK";
}

}  // namespace planview
