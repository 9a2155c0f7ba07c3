// SPDX-License-Identifier: MIT
#pragma once

#include <planview/ObjectRegistry.h>
#ifdef PLANBOOK_HAS_XLSX
#include <planview/xlsx/SpreadsheetApplication.h>
#endif

namespace planbook {

/// Gives the view the spreadsheet application that planbook was built with; without one the view says that there is
/// none.
inline void RegisterSpreadsheet([[maybe_unused]] planview::ObjectRegistry& objects) {
#ifdef PLANBOOK_HAS_XLSX
    planview::xlsx::Register(objects);
#endif
}

}  // namespace planbook
