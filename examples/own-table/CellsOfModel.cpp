// SPDX-License-Identifier: MIT
#include "CellsOfModel.h"

#include <string>

using planview::AutomationError;
using planview::AutomationErrorCode;
using planview::DispatchId;
using planview::Variant;

namespace {

constexpr DispatchId RowCount = 1;

[[noreturn]] void refuse(const std::string& what) {
    throw AutomationError(AutomationErrorCode::UnknownMember, what);
}

}  // namespace

// The control asks for the number of a member once and uses it from then on. Names come in any case; these are the
// spellings that it uses.
DispatchId CellsOfModel::IdOf(std::string_view name) const {
    if (name == "rowCount") {
        return RowCount;
    }
    refuse("The cells of a model have no member \"" + std::string(name) + "\"");
}

Variant CellsOfModel::Get(DispatchId member, Arguments arguments) {
    if (member == RowCount) {
        return model_.rowCount() * model_.columnCount();
    }
    if (member != planview::DefaultMember || arguments.size() != 2) {
        refuse("The cells of a model have a row count, and fields by row and name");
    }
    const QModelIndex index = indexOf(arguments);
    const std::string field = arguments[1].AsText();
    if (field == "Z") {
        return index.row() + 1;
    }
    if (field == "C") {
        return index.column() + 1;
    }
    if (field == "V") {
        return index.data(Qt::EditRole).toDouble();
    }
    refuse("The cells of a model have no field \"" + field + "\"");
}

void CellsOfModel::Put(DispatchId member, Arguments arguments, const Variant& value) {
    if (member != planview::DefaultMember || arguments.size() != 2 || arguments[1].AsText() != "V") {
        refuse("Of the cells of a model, only V can be written");
    }
    // A deleted value comes as an empty text; this model has no empty cells.
    const bool isEmpty = value.IsEmpty() || (value.TextIf() && value.TextIf()->empty());
    const double number = isEmpty ? 0.0 : value.AsDouble();
    const QModelIndex index = indexOf(arguments);
    writing_ = true;
    model_.setData(index, number, Qt::EditRole);
    writing_ = false;
}

Variant CellsOfModel::Call(DispatchId member, Arguments arguments) {
    return Get(member, arguments);
}

QModelIndex CellsOfModel::indexOf(Arguments arguments) const {
    const int row = arguments[0].AsInt32() - 1;
    const int columns = model_.columnCount();
    if (row < 0 || columns == 0 || row >= model_.rowCount() * columns) {
        throw AutomationError(AutomationErrorCode::SubscriptOutOfRange, "The model has no such cell");
    }
    return model_.index(row / columns, row % columns);
}
