// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "components/GridTypes.h"
#include "grid/UndoHistory.h"

namespace planview {

/// How the user gave cells their values.
enum class EditKind { Value, Drag, Paste, Fill, Delete, Raise };

/// What the changed cells alone do not tell of an edit.
struct EditNote {
    EditKind kind = EditKind::Value;
    double percent = 0;            ///< of Raise
    std::vector<CellKey> meant{};  ///< of Raise: the cells it was for, the empty ones too
};

/// Hears what the user has done to values, after it was done and when nothing of it is under way any more.
class UserActions {
public:
    virtual ~UserActions() = default;
    /// `changes` are the cells that changed. `undoable` when the undo history has taken them.
    virtual void Edited(const EditNote& note, const UndoStep& changes, bool undoable) noexcept = 0;
    /// The history has taken what the user did to columns or rows. `recorded` when the command that did it is recorded
    /// next.
    virtual void TracksChanged(bool recorded) noexcept = 0;
    /// Without changes of values what was done to columns or rows.
    virtual void Undone(const UndoStep& changes) noexcept = 0;
    virtual void Redone(const UndoStep& changes) noexcept = 0;
    /// Steps of the undo history have lost all that they held, because what they changed is no longer there.
    virtual void StepsEmptied(const UndoHistory::Emptied& emptied) noexcept = 0;
    /// Whether anybody wants to hear; what is costly to tell is told only then.
    [[nodiscard]] virtual bool Listening() const noexcept = 0;
};

}  // namespace planview
