// SPDX-License-Identifier: MIT
#include "exchange/PreviewText.h"

#include <QRegularExpression>
#include <algorithm>
#include <array>
#include <filesystem>
#include <vector>

namespace planbook {

using planview::UploadChange;
using planview::UploadOrigin;
using planview::UploadPreview;

namespace {

enum Column { Line, Period, Before, After, Remark, ColumnCount };
using Row = std::array<QString, ColumnCount>;

bool IsNumberColumn(int column) {
    return column == Before || column == After;
}

/// One line of the terminal, whatever the text holds.
QString Shown(const std::string& text) {
    return text.empty() ? QStringLiteral("(empty)") : QString::fromStdString(text).simplified();
}

QString RemarkOf(const UploadChange& change) {
    if (change.IsRefused()) {
        return "refused: " + QString::fromStdString(change.refusal);
    }
    if (change.origin == UploadOrigin::Workbook) {
        return {};
    }
    return QString("left alone: changed in the %1 since the download, was %2")
        .arg(change.origin == UploadOrigin::Both ? "workbook and in the book" : "book", Shown(change.downloaded));
}

Row RowOf(const UploadChange& change) {
    return {QString::fromStdString(change.line).simplified(), QString::fromStdString(change.period).simplified(),
            Shown(change.before), Shown(change.after), RemarkOf(change)};
}

QString TableText(const std::vector<Row>& rows) {
    std::array<qsizetype, ColumnCount> widths{};
    for (const Row& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            widths[i] = std::max(widths[i], row[i].size());
        }
    }
    static const QRegularExpression blanksAtEnd("\\s+$");
    QString text;
    for (const Row& row : rows) {
        QString line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            const bool right = IsNumberColumn(static_cast<int>(i));
            line += (right ? row[i].rightJustified(widths[i]) : row[i].leftJustified(widths[i])) + "  ";
        }
        text += line.replace(blanksAtEnd, QString()) + "\n";
    }
    return text;
}

template <class IsMeant>
int CountIn(const UploadPreview& preview, const IsMeant& isMeant) {
    return static_cast<int>(std::count_if(preview.changes.begin(), preview.changes.end(), isMeant));
}

int RefusedIn(const UploadPreview& preview) {
    return CountIn(preview, [](const UploadChange& change) { return change.IsRefused(); });
}

int ChangedIn(const UploadPreview& preview, UploadOrigin origin) {
    return CountIn(preview, [=](const UploadChange& change) { return !change.IsRefused() && change.origin == origin; });
}

}  // namespace

QString CountedValues(int count) {
    return QString("%1 value%2").arg(count).arg(count == 1 ? "" : "s");
}

bool IsWhole(const UploadPreview& preview) {
    return preview.notes.empty() && RefusedIn(preview) == 0 && ChangedIn(preview, UploadOrigin::Both) == 0;
}

QString PreviewText(const UploadPreview& preview) {
    const int refused = RefusedIn(preview);
    const int changed = ChangedIn(preview, UploadOrigin::Workbook);
    QString text =
        QString("%1, sheet %2: %3 to change")
            .arg(QString::fromStdString(std::filesystem::path(preview.file).filename().string()),
                 QString::fromStdString(preview.sheet), changed == 0 ? QString("nothing") : CountedValues(changed));
    if (refused > 0) {
        text += QString(", %1 refused").arg(refused);
    }
    if (const int both = ChangedIn(preview, UploadOrigin::Both); both > 0) {
        text += QString(", %1 changed in both").arg(both);
    }
    if (const int book = ChangedIn(preview, UploadOrigin::Book); book > 0) {
        text += QString(", %1 changed in the book only").arg(book);
    }
    text += "\n";
    if (!preview.changes.empty()) {
        std::vector<Row> rows{{"Line", "Period", "Old value", "New value", ""}};
        for (const UploadChange& change : preview.changes) {
            rows.push_back(RowOf(change));
        }
        text += TableText(rows);
    }
    for (const auto& sentences : {preview.notes, preview.remarks}) {
        for (const std::string& sentence : sentences) {
            text += QString::fromStdString(sentence).simplified() + "\n";
        }
    }
    return text;
}

}  // namespace planbook
