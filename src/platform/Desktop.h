// SPDX-License-Identifier: MIT
#pragma once

#include <planview/Export.h>
#include <planview/Platform.h>

namespace planview {

/// The pieces of a Platform that lacks none. The referred objects must outlive it.
struct Desktop {
    /// Every piece must be there.
    Desktop(const Platform& complete) noexcept
        : messageBoxes(*complete.messageBoxes),
          forms(*complete.forms),
          clipboard(*complete.clipboard),
          system(*complete.system),
          popups(*complete.popups),
          fileDialogs(*complete.fileDialogs),
          objects(*complete.objects),
          progress(*complete.progress) {}

    MessageBoxes& messageBoxes;
    Forms& forms;
    Clipboard& clipboard;
    SystemInformation& system;
    Popups& popups;
    FileDialogs& fileDialogs;
    ObjectFactory& objects;
    Progress& progress;
};

/// The given pieces, and those of `others` where none is given.
[[nodiscard]] PLANVIEW_EXPORT Platform Completed(const Platform& given, const Platform& others) noexcept;

}  // namespace planview
