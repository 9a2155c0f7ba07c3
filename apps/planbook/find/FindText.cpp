// SPDX-License-Identifier: MIT
#include "find/FindText.h"

#include <QRegularExpression>
#include <algorithm>

namespace planbook {

namespace {

constexpr int KeptDigits = 15;
constexpr int Percent = 100;

/// The marks of one kind all gone, one of the other kind as the point.
QString WithMarks(QString text, QChar group, QChar decimal) {
    return text.remove(group).replace(decimal, '.');
}

QStringList ReadingsOf(const QString& text) {
    static const QRegularExpression digitsAndMarks("^[+-]?[0-9.,]*[0-9][0-9.,]*$");
    static const QRegularExpression groups("^[+-]?[0-9]{1,3}([.,])[0-9]{3}(\\1[0-9]{3})*$");
    if (!digitsAndMarks.match(text).hasMatch()) {
        return {};
    }
    const auto points = text.count('.');
    const auto commas = text.count(',');
    if (points > 0 && commas > 0) {
        return {text.lastIndexOf('.') > text.lastIndexOf(',') ? WithMarks(text, ',', '.') : WithMarks(text, '.', ',')};
    }
    QStringList readings;
    if (points + commas <= 1) {
        readings << WithMarks(text, ' ', ',');
    }
    if (groups.match(text).hasMatch()) {
        readings << QString(text).remove('.').remove(',');
    }
    return readings;
}

/// The number as it is shown, but without groups and with "." as the decimal mark.
QString ShownDigits(double number, std::string_view format) {
    const std::string_view code = format.substr(0, format.find(';'));
    const std::size_t point = code.find('.');
    const auto decimals = point == std::string_view::npos
                              ? 0
                              : std::count_if(code.begin() + static_cast<std::ptrdiff_t>(point), code.end(),
                                              [](char c) { return c == '0' || c == '#'; });
    const bool percent = code.find('%') != std::string_view::npos;
    return QString::number(percent ? number * Percent : number, 'f', static_cast<int>(decimals));
}

}  // namespace

FindText::FindText(const QString& text) : text_(text.trimmed()), digits_(ReadingsOf(text_)) {}

bool FindText::IsIn(const QString& text) const {
    return text.contains(text_, Qt::CaseInsensitive);
}

bool FindText::IsIn(double number, std::string_view format) const {
    if (digits_.isEmpty()) {
        return false;
    }
    const QString kept = QString::number(number, 'g', KeptDigits);
    const QString shown = format.empty() ? kept : ShownDigits(number, format);
    return std::any_of(digits_.begin(), digits_.end(),
                       [&](const QString& digits) { return kept.contains(digits) || shown.contains(digits); });
}

}  // namespace planbook
