// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string_view>
#include <utility>
#include <vector>

#include "grid/CellEntry.h"
#include "grid/ValueEntry.h"

namespace planview {

/// What the user entered last and could have meant otherwise: says how it was taken, and takes it the other way when
/// the user asks for that, once. What has changed since is left alone.
class OtherReading {
public:
    struct Parts {
        const GridControl& grid;
        ValueEntry& valueEntry;
        /// Shows a sentence beside a cell; false, or none, where that is not possible.
        std::function<bool(Cell cell, std::string_view sentence)> tellBeside;
    };

    explicit OtherReading(Parts parts) : parts_(std::move(parts)) {}

    /// The cells hold by now what they were taken for; those that do not are left out. In the place of an earlier
    /// offer.
    void Offer(std::vector<GuessedEntry> guesses, EditKind kind);
    /// Whether a cell still holds what it was taken for.
    [[nodiscard]] bool IsOffered() const;
    void Take();

private:
    [[nodiscard]] bool Holds(const GuessedEntry& guess) const;
    void Tell() const;

    Parts parts_;
    std::vector<GuessedEntry> guesses_;
    EditKind kind_ = EditKind::Value;
};

}  // namespace planview
