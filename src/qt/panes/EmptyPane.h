#pragma once

#include <QWidget>

#include "qt/grid/GridTheme.h"

namespace planview {

/// A pane that has its heading and nothing else to show yet.
class EmptyPane final : public QWidget {
public:
    /// What the pane stands on.
    enum class Ground { Panel, Base };

    EmptyPane(const QString& heading, Ground ground, QWidget* parent = nullptr);

    void setTheme(const GridTheme& theme);
    /// The heading takes the scale of the grid's texts; in a narrow pane it is smaller before it is shortened.
    void setTextScale(double scale);
    /// Paints the pane as it is into another place.
    void paintOn(QPainter& painter, const QRect& rect) const;

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] int scaled(int logical) const;
    [[nodiscard]] QFont headingFont(int width) const;

    QString heading_;
    Ground ground_;
    const GridTheme* theme_ = &GridTheme::light();
    double textScale_ = 1.0;
};

}  // namespace planview
