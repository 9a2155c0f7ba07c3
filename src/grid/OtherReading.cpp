// SPDX-License-Identifier: MIT
#include "grid/OtherReading.h"

#include <algorithm>
#include <string>
#include <utility>

#include "automation/Numbers.h"
#include "automation/Texts.h"

namespace planview {

bool OtherReading::Holds(const GuessedEntry& guess) const {
    const std::optional<Cell> cell = parts_.grid.FindCell(guess.cell);
    return cell && parts_.grid.Contents(*cell) == NumberText(guess.taken, GridDecimalMark);
}

bool OtherReading::IsOffered() const {
    return std::any_of(guesses_.begin(), guesses_.end(), [this](const GuessedEntry& guess) { return Holds(guess); });
}

void OtherReading::Offer(std::vector<GuessedEntry> guesses, EditKind kind) {
    guesses_ = std::move(guesses);
    kind_ = kind;
    std::erase_if(guesses_, [this](const GuessedEntry& guess) { return !Holds(guess); });
    Tell();
}

void OtherReading::Tell() const {
    const std::optional<Cell> cell = guesses_.empty() ? std::nullopt : parts_.grid.FindCell(guesses_.front().cell);
    if (!cell || !parts_.tellBeside) {
        return;
    }
    const GuessedEntry& first = guesses_.front();
    std::string text = "Taken as " + SpokenNumber(first.taken);
    if (guesses_.size() > 1) {
        text += ", and " + Counted(guesses_.size() - 1, "other value") + " in the same way";
    }
    static_cast<void>(parts_.tellBeside(*cell, text + ". Ctrl+M takes " + (guesses_.size() > 1 ? "them" : "it") +
                                                   " as " + SpokenNumber(first.other) + "."));
}

void OtherReading::Take() {
    std::vector<NewValue> values;
    for (const GuessedEntry& guess : std::exchange(guesses_, {})) {
        if (Holds(guess)) {
            values.push_back({*parts_.grid.FindCell(guess.cell), NumberText(guess.other, GridDecimalMark)});
        }
    }
    static_cast<void>(parts_.valueEntry.ChangeCells(values, {kind_}));
}

}  // namespace planview
