// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>
#include <QStringList>

#include "dialogs/frmUpload.h"
#include "qt/grid/GridTheme.h"

namespace planview {

/// The changes of an upload as a model: reads the form's own preview, copies nothing, and ticks through the form.
class UploadModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { Line, Period, Before, After, Remark, ColumnCount };

    UploadModel(frmUpload& form, QObject* parent) : QAbstractTableModel(parent), form_(&form) {}

    void setTheme(const GridTheme& theme);
    /// The form is gone.
    void end();
    [[nodiscard]] bool isRefused(int row) const;
    [[nodiscard]] UploadOrigin origin(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

Q_SIGNALS:
    void ticked();

private:
    [[nodiscard]] const UploadChange* change(int row) const;

    frmUpload* form_;
    GridTheme theme_ = GridTheme::light();
};

/// Passes the changes that contain all of the given words and are of one kind, or of any.
class UploadFilter final : public QSortFilterProxyModel {
    Q_OBJECT

public:
    /// In the order of the box in which the user chooses.
    enum class Show { All, Changes, Refused, Both, Book };

    explicit UploadFilter(UploadModel& model, QObject* parent) : QSortFilterProxyModel(parent), model_(model) {
        setSourceModel(&model);
    }
    void setWords(const QString& text, Show show);

protected:
    [[nodiscard]] bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

private:
    [[nodiscard]] bool isShown(int row) const;

    UploadModel& model_;
    QStringList words_;
    Show show_ = Show::All;
};

}  // namespace planview
