// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>
#include <string_view>

namespace planbook {

/// What the user looks for, made ready for comparing.
class FindText {
public:
    explicit FindText(const QString& text);

    [[nodiscard]] bool IsEmpty() const noexcept { return text_.isEmpty(); }
    [[nodiscard]] bool IsIn(const QString& text) const;
    /// `format` is the number code that the number is shown by.
    [[nodiscard]] bool IsIn(double number, std::string_view format) const;

private:
    QString text_;
    /// The readings of the text as digits of a number: without groups, with "." as the decimal mark.
    QStringList digits_;
};

}  // namespace planbook
