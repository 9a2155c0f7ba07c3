// SPDX-License-Identifier: MIT
#include "qt/dialogs/UploadModel.h"

#include <QBrush>
#include <QPixmap>
#include <algorithm>

namespace planview {

namespace {

QString shownValue(const std::string& text) {
    return text.empty() ? UploadModel::tr("(empty)") : QString::fromStdString(text);
}

/// Space in the place of a tick box, so that captions line up.
QPixmap noTickBox() {
    constexpr int Side = 14;
    QPixmap room(Side, Side);
    room.fill(Qt::transparent);
    return room;
}

/// Labels may be indented.
QString shownCaption(const std::string& text) {
    return QString::fromStdString(text).trimmed();
}

}  // namespace

void UploadModel::setTheme(const GridTheme& theme) {
    theme_ = theme;
    if (rowCount() > 0) {
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1), {Qt::ForegroundRole});
    }
}

void UploadModel::end() {
    beginResetModel();
    form_ = nullptr;
    endResetModel();
}

const UploadChange* UploadModel::change(int row) const {
    const auto place = static_cast<std::size_t>(row);
    return form_ && row >= 0 && place < form_->Preview().changes.size() ? &form_->Preview().changes[place] : nullptr;
}

bool UploadModel::isRefused(int row) const {
    const UploadChange* each = change(row);
    return each && each->IsRefused();
}

UploadOrigin UploadModel::origin(int row) const {
    const UploadChange* each = change(row);
    return each ? each->origin : UploadOrigin::Workbook;
}

int UploadModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || !form_ ? 0 : static_cast<int>(form_->Preview().changes.size());
}

int UploadModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant UploadModel::data(const QModelIndex& index, int role) const {
    const UploadChange* each = change(index.row());
    if (!each) {
        return {};
    }
    switch (role) {
        case Qt::DisplayRole:
            switch (index.column()) {
                case Before:
                    return shownValue(ShownValuesOf(*each).before);
                case After:
                    return shownValue(ShownValuesOf(*each).after);
                default:
                    break;
            }
            [[fallthrough]];
        case Qt::ToolTipRole:
            switch (index.column()) {
                case Line:
                    return shownCaption(each->line);
                case Period:
                    return shownCaption(each->period);
                case Before:
                    return shownValue(each->before);
                case After:
                    return shownValue(each->after);
                default:
                    return QString::fromStdString(RemarkOf(*each));
            }
        case Qt::CheckStateRole:
            return index.column() == Line && !each->IsRefused() ? QVariant(each->taken ? Qt::Checked : Qt::Unchecked)
                                                                : QVariant();
        case Qt::DecorationRole:
            return index.column() == Line && each->IsRefused() ? QVariant(noTickBox()) : QVariant();
        case Qt::TextAlignmentRole:
            return index.column() == Before || index.column() == After ? QVariant(Qt::AlignRight | Qt::AlignVCenter)
                                                                       : QVariant(Qt::AlignLeft | Qt::AlignVCenter);
        case Qt::ForegroundRole:
            if (each->IsRefused()) {
                return QBrush(QColor(theme_.muted));
            }
            return index.column() == Before ? QVariant(QBrush(QColor(theme_.muted))) : QVariant();
        case Qt::AccessibleTextRole:
            if (index.column() != Remark || !RemarkOf(*each).empty()) {
                return {};
            }
            return form_->IsOfMacro() ? tr("changed by the macro") : tr("changed in the workbook");
        default:
            return {};
    }
}

bool UploadModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::CheckStateRole || !change(index.row()) || isRefused(index.row())) {
        return false;
    }
    form_->Tick(static_cast<std::size_t>(index.row()), value.value<Qt::CheckState>() == Qt::Checked);
    Q_EMIT dataChanged(index.siblingAtColumn(0), index.siblingAtColumn(0), {Qt::CheckStateRole});
    Q_EMIT ticked();
    return true;
}

Qt::ItemFlags UploadModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags usual = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    return index.column() == Line && !isRefused(index.row()) ? usual | Qt::ItemIsUserCheckable : usual;
}

QVariant UploadModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) {
        return {};
    }
    if (role == Qt::TextAlignmentRole) {
        return section == Before || section == After ? QVariant(Qt::AlignRight | Qt::AlignVCenter)
                                                     : QVariant(Qt::AlignLeft | Qt::AlignVCenter);
    }
    if (role != Qt::DisplayRole) {
        return {};
    }
    switch (section) {
        case Line:
            return tr("Line");
        case Period:
            return tr("Period");
        case Before:
            return tr("Old value");
        case After:
            return tr("New value");
        case Remark:
            return tr("Remark");
        default:
            return {};
    }
}

void UploadFilter::setWords(const QString& text, Show show) {
    words_ = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    show_ = show;
    invalidateFilter();
}

bool UploadFilter::isShown(int row) const {
    switch (show_) {
        case Show::Changes:
            return !model_.isRefused(row) && model_.origin(row) == UploadOrigin::Workbook;
        case Show::Refused:
            return model_.isRefused(row);
        case Show::Both:
            return !model_.isRefused(row) && model_.origin(row) == UploadOrigin::Both;
        case Show::Book:
            return !model_.isRefused(row) && model_.origin(row) == UploadOrigin::Book;
        case Show::All:
            break;
    }
    return true;
}

bool UploadFilter::filterAcceptsRow(int row, const QModelIndex& parent) const {
    if (!isShown(row)) {
        return false;
    }
    QString text;
    for (int column = 0; column < UploadModel::ColumnCount; ++column) {
        // A number is found as it is shown and, by the tip, as it is.
        for (const int role : {Qt::DisplayRole, Qt::ToolTipRole}) {
            text += model_.index(row, column, parent).data(role).toString() + QLatin1Char('\n');
        }
    }
    return std::all_of(words_.begin(), words_.end(),
                       [&](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
}

}  // namespace planview
