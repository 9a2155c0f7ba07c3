// SPDX-License-Identifier: MIT
#pragma once

#include <planview/Platform.h>

namespace planview {

/// The desktop's clipboard. Where a program offers a table as HTML alone, its cells are read as text.
class QtClipboard final : public Clipboard {
public:
    [[nodiscard]] ClipboardContents Get() override;
    void Set(const ClipboardContents& contents) override;
};

}  // namespace planview
