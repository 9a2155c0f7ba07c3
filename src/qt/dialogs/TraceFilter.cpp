// SPDX-License-Identifier: MIT
#include "qt/dialogs/TraceFilter.h"

#include <algorithm>

namespace planview {

void TraceFilter::setWords(const QString& text, int column) {
    words_ = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    column_ = column;
    invalidateFilter();
}

bool TraceFilter::filterAcceptsRow(int row, const QModelIndex& parent) const {
    if (words_.isEmpty()) {
        return true;
    }
    QString entry;
    for (int column = 0; column < sourceModel()->columnCount(parent); ++column) {
        if (column_ == AnyColumn || column_ == column) {
            entry += sourceModel()->index(row, column, parent).data().toString() + QLatin1Char('\n');
        }
    }
    return std::all_of(words_.begin(), words_.end(),
                       [&](const QString& word) { return entry.contains(word, Qt::CaseInsensitive); });
}

}  // namespace planview
