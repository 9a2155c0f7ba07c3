// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include <planview/Platform.h>

#include "qt/dialogs/ThemedDialog.h"

namespace planview {

/// The window for a form, found by the form's name; null for a form that has none.
[[nodiscard]] ThemedDialog* makeFormWindow(Form& form, QWidget* parent);

}  // namespace planview
