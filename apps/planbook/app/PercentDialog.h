// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class QDoubleSpinBox;

namespace planbook {

/// Asks for a percentage: buttons with the usual ones, and a field for any other.
class PercentDialog : public QDialog {
    Q_OBJECT

public:
    PercentDialog(const QString& text, double present, QWidget* parent);

    [[nodiscard]] double percent() const;

private:
    QDoubleSpinBox* value_;
};

}  // namespace planbook
