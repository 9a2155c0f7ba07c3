// SPDX-License-Identifier: MIT
#include "qt/dialogs/FormWindows.h"

#include "qt/dialogs/ChartDialog.h"
#include "qt/dialogs/GridOptionsDialog.h"
#include "qt/dialogs/RowDialog.h"
#include "qt/dialogs/TraceDialog.h"
#include "qt/dialogs/UploadDialog.h"

namespace planview {

namespace {

struct FormWindow {
    std::string_view form;
    ThemedDialog* (*make)(Form& form, QWidget* parent);
};

template <class SomeForm, class Dialog>
constexpr FormWindow windowOf() {
    return {SomeForm::FormName, [](Form& form, QWidget* parent) -> ThemedDialog* {
                auto* known = dynamic_cast<SomeForm*>(&form);  // a host's form may have the same name
                return known ? new Dialog(*known, parent) : nullptr;
            }};
}

/// One line for each form that has a window.
constexpr FormWindow Windows[] = {
    windowOf<frmChart, ChartDialog>(), windowOf<frmGrid, GridOptionsDialog>(), windowOf<frmRow, RowDialog>(),
    windowOf<frmTrace, TraceDialog>(), windowOf<frmUpload, UploadDialog>(),
};

}  // namespace

ThemedDialog* makeFormWindow(Form& form, QWidget* parent) {
    for (const FormWindow& window : Windows) {
        if (window.form == form.Name()) {
            return window.make(form, parent);
        }
    }
    return nullptr;
}

}  // namespace planview
