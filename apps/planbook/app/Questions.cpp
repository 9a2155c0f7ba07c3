// SPDX-License-Identifier: MIT
#include "app/Questions.h"

#include <QComboBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QStringList>

#include <planview/TypedNumber.h>

#include "app/PercentDialog.h"

namespace planbook {

namespace {

constexpr std::size_t CellsInText = 8;

QString shown(const QString& value) {
    return value.isEmpty() ? QStringLiteral("(empty)") : value;
}

QStringList linesOf(const std::vector<DisputedCell>& cells) {
    QStringList lines;
    for (const DisputedCell& cell : cells) {
        lines << QString("%1: yours %2, theirs %3").arg(cell.name, shown(cell.mine), shown(cell.theirs));
    }
    return lines;
}

}  // namespace

QString counted(int count, const QString& what) {
    return QString("%1 %2%3").arg(count).arg(what, count == 1 ? "" : "s");
}

void QuestionWindows::tellFailure(const QString& text) {
    QMessageBox::warning(parent_, "planbook", text);
}

void QuestionWindows::tell(const QString& text) {
    QMessageBox::information(parent_, "planbook", text);
}

bool QuestionWindows::mayRevert(int changes) {
    QMessageBox box(
        QMessageBox::Question, "planbook",
        QString("Revert %1?\nThe old values come back, this cannot be undone.").arg(counted(changes, "pending change")),
        QMessageBox::Cancel, parent_);
    const QPushButton* revert = box.addButton("Revert", QMessageBox::DestructiveRole);
    box.setDefaultButton(QMessageBox::Cancel);
    box.exec();
    return box.clickedButton() == revert;
}

Questions::Keep QuestionWindows::whoseValues(const std::vector<DisputedCell>& cells) {
    const QStringList lines = linesOf(cells);
    QMessageBox box(parent_);
    box.setIcon(QMessageBox::Question);
    box.setWindowTitle("planbook");
    box.setText(cells.size() == 1 ? QString("Another window has changed this cell too.")
                                  : QString("Another window has changed %1 of these cells too.").arg(cells.size()));
    QString text = lines.mid(0, CellsInText).join('\n');
    if (cells.size() > CellsInText) {
        text += QString("\nand %1 more").arg(cells.size() - CellsInText);
        box.setDetailedText(lines.join('\n'));
    }
    box.setInformativeText(text);
    const QPushButton* mine = box.addButton("Keep mine", QMessageBox::AcceptRole);
    QPushButton* theirs = box.addButton("Take theirs", QMessageBox::RejectRole);
    box.setEscapeButton(theirs);
    box.setDefaultButton(theirs);
    box.exec();
    return box.clickedButton() == mine ? Keep::Mine : Keep::Theirs;
}

int QuestionWindows::chooseLine(const QString& text, const QStringList& lines) {
    QInputDialog dialog(parent_);
    dialog.setWindowTitle("planbook");
    dialog.setLabelText(text);
    dialog.setComboBoxItems(lines);
    const bool chosen = dialog.exec() == QDialog::Accepted;
    // By place: two lines may have the same caption.
    const auto* box = dialog.findChild<QComboBox*>();
    return chosen && box ? box->currentIndex() : -1;
}

std::optional<double> QuestionWindows::askNumber(const QString& text, double present, const std::string& numberCode) {
    QString entered = QString::number(present, 'f', 2).replace('.', ',');
    for (;;) {
        bool ok = false;
        entered = QInputDialog::getText(parent_, "planbook", text, QLineEdit::Normal, entered, &ok);
        if (!ok) {
            return std::nullopt;
        }
        if (const auto number = planview::ReadTypedNumber(entered.toStdString(), numberCode)) {
            return number;
        }
        tellFailure(QString("\"%1\" is not a number. Enter one such as 1234,5.").arg(entered));
    }
}

std::optional<double> QuestionWindows::askPercent(const QString& text) {
    PercentDialog dialog(text, percent_, parent_);
    if (dialog.exec() != QDialog::Accepted) {
        return std::nullopt;
    }
    percent_ = dialog.percent();
    return percent_;
}

std::optional<QString> QuestionWindows::askName(const QString& text, const QString& suggested) {
    bool ok = false;
    const QString name = QInputDialog::getText(parent_, "planbook", text, QLineEdit::Normal, suggested, &ok);
    return ok ? std::optional(name) : std::nullopt;
}

/// Keep, Discard or Cancel.
Questions::OfRecording QuestionWindows::askWhatOf(const QString& text, const QString& keepCaption) {
    QMessageBox box(QMessageBox::Question, "planbook", text, QMessageBox::Cancel, parent_);
    QPushButton* keep = box.addButton(keepCaption, QMessageBox::AcceptRole);
    const QPushButton* discard = box.addButton("Discard", QMessageBox::DestructiveRole);
    box.setDefaultButton(keep);
    box.exec();
    return box.clickedButton() == keep      ? OfRecording::Keep
           : box.clickedButton() == discard ? OfRecording::Discard
                                            : OfRecording::GoOn;
}

Questions::OfRecording QuestionWindows::whatOfRecording(int steps) {
    return askWhatOf(
        QString("A recording of %1 is running.\nIt ends when the book is left.").arg(counted(steps, "step")), "Keep…");
}

Questions::OfRecording QuestionWindows::whatOfTrace() {
    return askWhatOf("The trace is on, and what it holds has not been saved.\nIt is lost when planbook ends.", "Save…");
}

std::optional<QString> QuestionWindows::chooseTraceFile(const QString& suggested) {
    const QString name =
        QFileDialog::getSaveFileName(parent_, "Save the trace as", suggested, "Traces (*.log *.txt);;All files (*)");
    return name.isEmpty() ? std::nullopt : std::optional(name);
}

bool QuestionWindows::mayDiscardRecording(int steps) {
    QMessageBox box(
        QMessageBox::Question, "planbook",
        QString("Discard the recording of %1?\nWhat you did meanwhile stays done.").arg(counted(steps, "step")),
        QMessageBox::Cancel, parent_);
    const QPushButton* discard = box.addButton("Discard", QMessageBox::DestructiveRole);
    box.setDefaultButton(QMessageBox::Cancel);
    box.exec();
    return box.clickedButton() == discard;
}

}  // namespace planbook
