// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include <planview/Platform.h>

class QMimeData;

namespace planview {

/// What a program offers, by the clipboard or by dragging. Where it offers a table as HTML alone, its cells are read as
/// text.
[[nodiscard]] ClipboardContents contentsOf(const QMimeData& data);
/// The contents for other programs.
[[nodiscard]] std::unique_ptr<QMimeData> mimeDataOf(const ClipboardContents& contents);

/// The desktop's clipboard.
class QtClipboard final : public Clipboard {
public:
    [[nodiscard]] ClipboardContents Get() override;
    void Set(const ClipboardContents& contents) override;
};

}  // namespace planview
