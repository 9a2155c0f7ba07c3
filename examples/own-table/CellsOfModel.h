// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractItemModel>

#include <planview/AutomationObject.h>

/// The table TAB over a model that the application has anyway: nothing is copied, what the control reads comes from the
/// model and what the user enters goes into it.
///
/// Row i of the table is the model's cell (row (i - 1) / columns, column (i - 1) % columns); `Z` is the cell's row from
/// 1, `C` its column from 1 and `V` its value. Every cell of the model has its row, so the control never appends one.
class CellsOfModel final : public planview::AutomationObject {
public:
    /// The model must outlive every control that the table is handed to.
    explicit CellsOfModel(QAbstractItemModel& model) : model_(model) {}

    planview::DispatchId IdOf(std::string_view name) const override;
    planview::Variant Get(planview::DispatchId member, Arguments arguments) override;
    void Put(planview::DispatchId member, Arguments arguments, const planview::Variant& value) override;
    planview::Variant Call(planview::DispatchId member, Arguments arguments) override;

    /// Whether a change that the model reports right now comes from the control.
    bool isWriting() const { return writing_; }

private:
    QModelIndex indexOf(Arguments arguments) const;

    QAbstractItemModel& model_;
    bool writing_ = false;
};
