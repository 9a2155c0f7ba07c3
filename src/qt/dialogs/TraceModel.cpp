// SPDX-License-Identifier: MIT
#include "qt/dialogs/TraceModel.h"

#include <QBrush>
#include <QCoreApplication>
#include <QDateTime>
#include <QPointer>
#include <algorithm>
#include <atomic>
#include <chrono>
#include <utility>

namespace planview {

namespace {

bool isError(const ListItem& item) {
    return item.text == "==>" || item.subItems[0] == "ERROR" || item.subItems[1] == "ERROR";
}

bool isBookmark(const ListItem& item) {
    return item.subItems[0] == "# BOOKMARK #";
}

QString timeText(const ListItem& item) {
    const auto sinceEpoch = std::chrono::duration_cast<std::chrono::milliseconds>(item.time.time_since_epoch());
    return sinceEpoch.count() == 0
               ? QString()
               : QDateTime::fromMSecsSinceEpoch(sinceEpoch.count()).toString(QStringLiteral("HH:mm:ss.zzz"));
}

}  // namespace

/// Hears of the list on whatever thread it is changed, and goes on in the next turn of the user interface's.
class TraceModel::Watcher final : public ListViewWatcher {
public:
    explicit Watcher(TraceModel& model) : model_(&model) {}

    void ItemAdded(std::uint64_t /*number*/) override { reportSoon(); }
    void Cleared() override { reportSoon(); }
    void Ended() override { post(&TraceModel::ended); }

    /// What happens from now on needs another report.
    void reportBegins() { reportComing_ = false; }

private:
    void reportSoon() {
        if (!reportComing_.exchange(true)) {
            post(&TraceModel::report);
        }
    }
    /// Not through the model itself, which may end at this moment.
    void post(void (TraceModel::*what)()) const {
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [model = model_, what] {
                if (model) {
                    (model.data()->*what)();
                }
            },
            Qt::QueuedConnection);
    }

    const QPointer<TraceModel> model_;  // read in the thread of the user interface only
    std::atomic<bool> reportComing_ = false;
};

TraceModel::TraceModel(std::shared_ptr<ListView> list, QObject* parent)
    : QAbstractTableModel(parent), list_(std::move(list)), watcher_(std::make_shared<Watcher>(*this)) {
    list_->AddWatcher(watcher_);
    const ListView::Range items = list_->Items();
    first_ = items.first;
    rows_ = static_cast<int>(items.count);
}

TraceModel::~TraceModel() {
    list_->RemoveWatcher(*watcher_);
}

void TraceModel::setTheme(const GridTheme& theme) {
    theme_ = theme;
    if (rows_ > 0) {
        Q_EMIT dataChanged(index(0, 0), index(rows_ - 1, columnCount() - 1), {Qt::ForegroundRole, Qt::BackgroundRole});
    }
}

int TraceModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int TraceModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(list_->Columns().size()) + 1;
}

QVariant TraceModel::data(const QModelIndex& index, int role) const {
    ListItem entry;
    const bool wanted = role == Qt::DisplayRole || role == Qt::ToolTipRole || role == Qt::ForegroundRole;
    if (!wanted || !index.isValid() || !list_->Read(first_ + static_cast<std::uint64_t>(index.row()), entry)) {
        return {};
    }
    switch (role) {
        case Qt::DisplayRole:
        case Qt::ToolTipRole:
            return index.column() == timeColumn() ? timeText(entry)
                   : index.column() == 0
                       ? QString::fromStdString(entry.text)
                       : QString::fromStdString(entry.subItems[static_cast<std::size_t>(index.column()) - 1]);
        case Qt::ForegroundRole:
            return isError(entry)      ? QBrush(QColor(theme_.negative))
                   : isBookmark(entry) ? QBrush(QColor(theme_.accent))
                                       : QVariant();
        default:
            return {};
    }
}

QVariant TraceModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section > timeColumn()) {
        return {};
    }
    if (section == timeColumn()) {
        return tr("Time");
    }
    return QString::fromStdString(list_->Columns()[static_cast<std::size_t>(section)].caption);
}

void TraceModel::report() {
    watcher_->reportBegins();
    Q_EMIT aboutToReport();
    const ListView::Range items = list_->Items();
    const auto removed = static_cast<int>(std::min<std::uint64_t>(items.first - first_, static_cast<unsigned>(rows_)));
    const auto count = static_cast<int>(items.count);
    if (rows_ == 0) {
        first_ = items.first;
    } else if (removed == rows_) {
        beginResetModel();
        first_ = items.first;
        rows_ = count;
        endResetModel();
    } else if (removed > 0) {
        beginRemoveRows({}, 0, removed - 1);
        first_ = items.first;
        rows_ -= removed;
        endRemoveRows();
    }
    if (count > rows_) {
        beginInsertRows({}, rows_, count - 1);
        rows_ = count;
        endInsertRows();
    }
    Q_EMIT reported();
}

}  // namespace planview
