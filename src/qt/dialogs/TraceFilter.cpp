// SPDX-License-Identifier: MIT
#include "qt/dialogs/TraceFilter.h"

#include <algorithm>
#include <initializer_list>

namespace planview {

namespace {

enum Column { Control, Message, Method, Parameter };

std::initializer_list<int> columnsOf(TraceFilter::In where) {
    static constexpr std::initializer_list<int> Everywhere{Control, Message, Method, Parameter};
    static constexpr std::initializer_list<int> OnlyControl{Control};
    static constexpr std::initializer_list<int> OnlyMethod{Method};
    static constexpr std::initializer_list<int> OnlyText{Message, Parameter};
    switch (where) {
        case TraceFilter::In::Control:
            return OnlyControl;
        case TraceFilter::In::Method:
            return OnlyMethod;
        case TraceFilter::In::Text:
            return OnlyText;
        case TraceFilter::In::Anywhere:
            break;
    }
    return Everywhere;
}

}  // namespace

void TraceFilter::setWords(const QString& text, In where) {
    words_ = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    where_ = where;
    invalidateFilter();
}

bool TraceFilter::filterAcceptsRow(int row, const QModelIndex& parent) const {
    if (words_.isEmpty()) {
        return true;
    }
    QString entry;
    for (const int column : columnsOf(where_)) {
        entry += sourceModel()->index(row, column, parent).data().toString() + QLatin1Char('\n');
    }
    return std::all_of(words_.begin(), words_.end(),
                       [&](const QString& word) { return entry.contains(word, Qt::CaseInsensitive); });
}

}  // namespace planview
