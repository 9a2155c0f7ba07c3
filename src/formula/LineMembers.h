// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace planview {

/// The lines one level below this one: those behind it, up to the next one that is not deeper, which no other line
/// stands above. `levelOf` tells how deep a line stands, `isText` which ones carry no values and are left out.
template <class Level, class Text>
[[nodiscard]] std::vector<int> MembersBelow(int line, int count, const Level& levelOf, const Text& isText) {
    std::vector<int> members;
    std::vector<int> above;  // the levels of those below `line` that the next one may stand below
    const int level = levelOf(line);
    for (int each = line + 1; each < count; ++each) {
        const int its = levelOf(each);
        if (its <= level) {
            break;
        }
        while (!above.empty() && above.back() >= its) {
            above.pop_back();
        }
        if (above.empty() && !isText(each)) {
            members.push_back(each);
        }
        above.push_back(its);
    }
    return members;
}

}  // namespace planview
