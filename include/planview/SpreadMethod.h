// SPDX-License-Identifier: MIT
#pragma once

namespace planview {

/// How a number is laid on the cells below a total; docs/spreading.md has the rules with examples.
enum class SpreadMethod {
    Proportional,  ///< by the size of what the cells hold, evenly where they hold nothing
    Equal,         ///< the same for each, so that the total is met
    Repeat,        ///< the number itself in each cell; the total follows
    Percent,       ///< each cell raised by the number in percent; the total follows
    StraightLine,  ///< from the first cell's value in equal steps, so that the total is met
    Profile        ///< by the size of another line's values in the same columns
};

}  // namespace planview
