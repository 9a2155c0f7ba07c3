// SPDX-License-Identifier: MIT
#pragma once

#include <QToolButton>
#include <QWidget>
#include <string>
#include <vector>

#include "qt/grid/GridBitmaps.h"
#include "qt/grid/GridTheme.h"

namespace planview {

/// The size of texts on the keys and in the list, in logical pixels.
inline constexpr int EditorTextPixels = 12;

/// Buttons that stand in as many rows as the width needs.
class EditorButtons final : public QWidget {
public:
    explicit EditorButtons(QWidget* parent = nullptr);

    /// `icon` names a picture. A gap before it begins a group.
    QToolButton* add(const char* name, const char* icon, const QString& tooltip, bool beginsGroup = false);

    void setLook(GridBitmaps& bitmaps, const GridTheme& theme, double scale);

    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Entry {
        QToolButton* button;
        std::string icon;
        bool beginsGroup;
    };
    [[nodiscard]] int scaled(int logical) const { return qRound(logical * scale_); }
    [[nodiscard]] std::vector<QRect> placesIn(int width) const;

    std::vector<Entry> entries_;
    double scale_ = 1.0;
};

/// The look of the standard widgets in the editor's panes.
[[nodiscard]] QString editorStyleSheet(const GridTheme& theme, double scale);

}  // namespace planview
