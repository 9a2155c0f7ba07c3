// SPDX-License-Identifier: MIT
#include "trace/ErrorTrap.h"

#include "trace/Failures.h"
#include "trace/TraceText.h"

namespace planview {

void TraceErrorEntry(std::string_view control, std::string_view method, std::string_view error) noexcept {
    if (modPlan::TraceEnabled) {
        modPlan::TraceWrite(control, "ERROR", method, TraceText("{error: ", error, "}"));
    }
}

void TraceError(std::string_view control, std::string_view method, const CaughtError& error) noexcept {
    TraceErrorEntry(control, method, error.text);
    NoteFailure(method, error);
}

void NoteFailure(std::string_view method, const CaughtError& error) noexcept {
    ResumeNext([&] {
        const TablePlace& place = error.place;
        FailureScope::Note({place.table, place.field, place.row, error.text, std::string(method)});
    });
}

void TraceError(std::string_view control, std::string_view method, std::string_view error) noexcept {
    ResumeNext([&] { TraceError(control, method, CaughtError{std::string(error)}); });
}

}  // namespace planview
