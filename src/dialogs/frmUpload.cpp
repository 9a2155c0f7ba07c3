// SPDX-License-Identifier: MIT
#include "dialogs/frmUpload.h"

#include <algorithm>
#include <optional>

#include "automation/NumberFormat.h"
#include "automation/Numbers.h"
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
    const auto count = [this](const auto& isMeant) {
        return static_cast<int>(std::count_if(preview_.changes.begin(), preview_.changes.end(), isMeant));
    };
    const auto from = [&](UploadOrigin origin) {
        return count([=](const UploadChange& each) { return !each.IsRefused() && each.origin == origin; });
    };
    const int refused = count([](const UploadChange& each) { return each.IsRefused(); });
    const int inBoth = from(UploadOrigin::Both);
    const int inBook = from(UploadOrigin::Book);
    lblFile = macro_.value_or(FileNameOf(preview_.file));
    if (!preview_.sheet.empty()) {
        lblFile += ", sheet " + preview_.sheet;
    }
    lblSummary = Counted(from(UploadOrigin::Workbook), "changed value");
    if (inBoth > 0) {
        lblSummary += ", " + std::to_string(inBoth) + " changed in the table too";
    }
    if (inBook > 0) {
        lblSummary += ", " + std::to_string(inBook) + " changed in the table only";
    }
    if (refused > 0) {
        lblSummary += ", " + std::to_string(refused) + " refused";
    }
    NameButton();
    if (modPlan::TraceEnabled) {
        modPlan::TraceWrite(TraceLabel(), "", "Set_Text", TraceText("{value: ", Caption(), "}"));
    }
}

ShownChange ShownValuesOf(const UploadChange& change) {
    const ShownChange plain{change.before, change.after, change.downloaded};
    const std::optional<NumberFormat> format = NumberFormat::Parse(change.format);
    if (!format) {
        return plain;
    }
    const auto shown = [&](const std::string& text) {
        const std::optional<double> number = TryParseNumber(text);
        return number ? format->Format(*number) : text;
    };
    ShownChange result{shown(plain.before), shown(plain.after), shown(plain.downloaded)};
    return result.before == result.after ? plain : result;
}

std::string RemarkOf(const UploadChange& change) {
    if (change.IsRefused()) {
        return change.refusal;
    }
    const std::string was =
        change.downloaded.empty() ? " It was empty." : " It was " + ShownValuesOf(change).downloaded + ".";
    switch (change.origin) {
        case UploadOrigin::Book:
            return "Changed in the table." + was;
        case UploadOrigin::Both:
            return "Changed in both." + was;
        case UploadOrigin::Workbook:
            break;
    }
    return {};
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

namespace {

bool Confirm(Forms& forms, frmUpload& form) {
    const LoadedForm loaded(forms, form);
    form.Set_Text();
    forms.ShowModal(form);
    return form.ButtonPressed == "OK";
}

}  // namespace

bool ConfirmUpload(Forms& forms, UploadPreview& preview) {
    frmUpload form(forms, preview);
    return Confirm(forms, form);
}

bool ConfirmMacro(Forms& forms, UploadPreview& preview, const std::string& macro) {
    frmUpload form(forms, preview, macro);
    return Confirm(forms, form);
}

}  // namespace planview
