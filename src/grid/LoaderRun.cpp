// SPDX-License-Identifier: MIT
#include <array>
#include <utility>

#include "grid/LoaderSupport.h"

namespace planview {

namespace {

/// The fields that an operation of the driver shows, where every table has the same one.
struct OperationField {
    std::string_view operation;
    std::string_view field;
};
constexpr std::array<OperationField, 13> OperationFields{{{"column width", "COL_WIDTH"},
                                                          {"ColumnHeight", "COL_HEIGHT"},
                                                          {"RowWidth", "ROW_WIDTH"},
                                                          {"row height", "ROW_HEIGHT"},
                                                          {"CenterBgColor", "ROW_BG"},
                                                          {"CenterFgColor", "ROW_FG"},
                                                          {"CenterFormat", "ROW_FORMAT"},
                                                          {"CenterFont", "ROW_FONT"},
                                                          {"CenterAlignment", "ROW_ALIGN"},
                                                          {"background colour", "BGCOLOR"},
                                                          {"foreground colour", "FGCOLOR"},
                                                          {"Tooltip", "TOOLTIP"},
                                                          {"bitmap", "BITMAP"}}};

}  // namespace

LoaderRun::LoaderRun(const LoaderContext& context, const LoaderSource& source)
    : driver_(context.driver), source_(source), reports_(context.report) {}

void LoaderRun::Begin(int rows) {
    again_ = !refused_.empty();
    report_.rows = rows;
    refused_.resize(static_cast<std::size_t>(rows) + 1);
}

void LoaderRun::EndRow(bool refusedByGrid) {
    if (refusedByGrid) {
        const modGrid::Refusal& refusal = driver_.LastRefusal();
        std::string reason(modGrid::StatusText(refusal.status));
        reason += " (" + refusal.keys.column;
        reason += refusal.keys.column.empty() || refusal.keys.row.empty() ? "" : ", ";
        Refuse(FieldOf(refusal), reason + refusal.keys.row + ")");
    }
    if (!again_ && !refused_[static_cast<std::size_t>(row_)]) {
        ++report_.read;
    }
}

void LoaderRun::Refuse(std::string_view field, std::string reason) {
    std::vector<bool>::reference refused = refused_.at(static_cast<std::size_t>(row_));
    if (refused) {
        return;
    }
    refused = true;
    ++report_.refused;
    report_.read -= again_ ? 1 : 0;
    KeepFirst(field, row_, std::move(reason));
}

void LoaderRun::Fail(const CaughtError& error) {
    if (source_.optional && !source_.table.IsSet()) {
        return;
    }
    NoteFailure(source_.name, error);
    firstTold_ = report_.first.reason.empty();
    if (row_ > 0) {
        Refuse(error.place.field, error.text);
    } else {
        KeepFirst(error.place.field, 0, error.text);
    }
}

void LoaderRun::KeepFirst(std::string_view field, int row, std::string reason) {
    if (report_.first.reason.empty()) {
        report_.first = {std::string(source_.table.Name()), std::string(field), row, std::move(reason),
                         std::string(source_.name)};
    }
}

void LoaderRun::End() noexcept {
    ResumeNext(
        [&] {
            if (!report_.first.reason.empty() && !firstTold_) {
                FailureScope::Note(report_.first);
            }
        },
        [&] {
            report_.table = source_.table.Name();
            if (reports_) {
                reports_->push_back(std::move(report_));
            }
        });
}

std::string_view LoaderRun::FieldOf(const modGrid::Refusal& refusal) const noexcept {
    switch (refusal.status) {
        case GridStatus::ColumnDefined:
        case GridStatus::UnknownColumn:
        case GridStatus::InvalidColumnPosition:
            return source_.column;
        case GridStatus::RowDefined:
        case GridStatus::UnknownRow:
        case GridStatus::InvalidRowPosition:
        case GridStatus::InvalidCellPosition:
            return source_.row;
        default:
            break;
    }
    if (refusal.operation == "Alignment") {
        return source_.alignment;
    }
    if (refusal.operation == "format") {
        return source_.format;
    }
    for (const OperationField& each : OperationFields) {
        if (each.operation == refusal.operation) {
            return each.field;
        }
    }
    return {};
}

}  // namespace planview
