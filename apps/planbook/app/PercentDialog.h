// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QDoubleSpinBox>
#include <optional>

namespace planbook {

/// A field for a percentage, which is read as the cells of the table are: "1.5" is one and a half.
class PercentField : public QDoubleSpinBox {
public:
    explicit PercentField(QWidget* parent);

    [[nodiscard]] double valueFromText(const QString& text) const override;
    [[nodiscard]] QValidator::State validate(QString& text, int& position) const override;

private:
    [[nodiscard]] static std::optional<double> numberIn(QString text);
};

/// Asks for a percentage: buttons with the usual ones, and a field for any other.
class PercentDialog : public QDialog {
    Q_OBJECT

public:
    PercentDialog(const QString& text, double present, QWidget* parent);

    [[nodiscard]] double percent() const;

private:
    PercentField* value_;
};

}  // namespace planbook
