// SPDX-License-Identifier: MIT
#pragma once

#include <random>
#include <string>
#include <vector>

/// The edits that the killed process makes, the same for the same seed.
struct KillEdit {
    /// One cell gets the value; or all cells of a block are emptied at once.
    enum class Kind { Type, EmptyBlock } kind = Kind::Type;
    int line = 0;  // the cell, or the first one of the block; from 1
    int period = 0;
    std::string value;
};

inline constexpr int KillBlockSide = 3;
inline constexpr int KillLines = 3;
inline constexpr int KillPeriods = 40;

inline std::vector<KillEdit> KillScript(unsigned seed, int count) {
    std::mt19937 random(seed);
    const auto upTo = [&](int most) { return static_cast<int>(random() % static_cast<unsigned>(most)) + 1; };
    constexpr int BlockEvery = 20;
    std::vector<KillEdit> edits;
    for (int i = 1; i <= count; ++i) {
        if (i % BlockEvery == 0) {
            edits.push_back(
                {KillEdit::Kind::EmptyBlock, KillLines - KillBlockSide + 1, upTo(KillPeriods - KillBlockSide + 1), ""});
        } else {
            edits.push_back({KillEdit::Kind::Type, upTo(KillLines), upTo(KillPeriods),
                             std::to_string(i) + (i % 2 == 0 ? ",5" : ".25")});
        }
    }
    return edits;
}
