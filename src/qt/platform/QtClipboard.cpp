// SPDX-License-Identifier: MIT
#include "qt/platform/QtClipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>

#include "clipboard/BlockText.h"

namespace planview {

namespace {

std::string cellText(const QTextTableCell& cell) {
    QTextCursor cursor = cell.firstCursorPosition();
    cursor.setPosition(cell.lastCursorPosition().position(), QTextCursor::KeepAnchor);
    QString text = cursor.selectedText();
    text.replace(QChar::ParagraphSeparator, QLatin1Char('\n')).replace(QChar::LineSeparator, QLatin1Char('\n'));
    return text.trimmed().toStdString();
}

/// The cells of the first table as a block; without a table the text.
std::string textOfHtml(const QString& html) {
    QTextDocument document;
    document.setHtml(html);
    for (QTextFrame* frame : document.rootFrame()->childFrames()) {
        const auto* table = qobject_cast<QTextTable*>(frame);
        if (!table) {
            continue;
        }
        TextBlock block(static_cast<std::size_t>(table->rows()));
        for (int row = 0; row < table->rows(); ++row) {
            for (int column = 0; column < table->columns(); ++column) {
                block[static_cast<std::size_t>(row)].push_back(cellText(table->cellAt(row, column)));
            }
        }
        return FormatBlock(block);
    }
    return document.toPlainText().toStdString();
}

}  // namespace

ClipboardContents contentsOf(const QMimeData& data) {
    // QMimeData::hasText() is true for HTML alone, too.
    const bool hasText = data.hasFormat(QStringLiteral("text/plain"));
    const QString html = data.hasHtml() ? data.html() : QString();
    return {hasText ? data.text().toStdString() : textOfHtml(html), html.toStdString()};
}

std::unique_ptr<QMimeData> mimeDataOf(const ClipboardContents& contents) {
    auto data = std::make_unique<QMimeData>();
    if (!contents.text.empty()) {
        data->setText(QString::fromStdString(contents.text));
    }
    if (!contents.html.empty()) {
        data->setHtml(QString::fromStdString(contents.html));
    }
    return data;
}

ClipboardContents QtClipboard::Get() {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    return data ? contentsOf(*data) : ClipboardContents();
}

void QtClipboard::Set(const ClipboardContents& contents) {
    QGuiApplication::clipboard()->setMimeData(mimeDataOf(contents).release());  // which takes it
}

}  // namespace planview
