// SPDX-License-Identifier: MIT
#include "spreadsheet/SheetCells.h"

#include "automation/ErrorText.h"

namespace planview {

namespace {

ObjectRef Required(ObjectRef object, const char* what) {
    if (!object) {
        throw AutomationError(AutomationErrorCode::ObjectNotSet, std::string("There is no ") + what);
    }
    return object;
}

}  // namespace

SheetCells::SheetCells(const Variant& worksheet)
    : worksheet_(Required(worksheet.AsObject(), "worksheet")), cells_(worksheet_->IdOf("Cells")) {}

void SheetCells::GoTo(std::int16_t row, std::int16_t column) {
    place_[0] = row;
    place_[1] = column;
    cell_.reset();  // a worksheet may use the object again
    cell_ = Required(worksheet_->Get(cells_, place_).AsObject(), "cell");
}

void SheetCells::SetInterior(std::int16_t colorIndex) {
    const ObjectRef interior = Required(cell_->Get(interior_.Of(*cell_), {}).AsObject(), "interior");
    interior->Put(colorIndex_.Of(*interior), {}, colorIndex);
}

void SheetCells::SetLocked(bool locked) {
    cell_->Put(locked_.Of(*cell_), {}, locked);
}

void SheetCells::SetValue(const Variant& value) {
    cell_->Put(value_.Of(*cell_), {}, value);
}

Variant SheetCells::Value() {
    return cell_->Get(value_.Of(*cell_), {});
}

bool SheetCells::IsMerged() {
    bool merged = false;
    (void)ErrorTextOf([&] { merged = cell_->Get(mergeCells_.Of(*cell_), {}).AsBoolean(); });
    return merged;
}

}  // namespace planview
