// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace planbook {

/// What is wrong in a text file, collected so that the user hears of all of it at once.
class Faults {
public:
    /// Lines and columns count from 1; 0 means the file (line) or the line (column) as a whole.
    void Add(int line, int column, std::string text);

    [[nodiscard]] bool Any() const noexcept { return !faults_.empty(); }

    /// Throws BookError with one line of text per fault, in the order of the lines, the first `limit` of them, then how
    /// many more there are. Does nothing when there is none.
    void Throw(const std::string& fileName) const;

    static constexpr std::size_t Limit = 20;

private:
    struct Fault {
        int line;
        int column;
        std::string text;
    };
    std::vector<Fault> faults_;
};

}  // namespace planbook
