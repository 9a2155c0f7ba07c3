// SPDX-License-Identifier: MIT
#include "import/Faults.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "book/BookError.h"

namespace planbook {

void Faults::Add(int line, int column, std::string text) {
    faults_.push_back({line, column, std::move(text)});
}

void Faults::Throw(const std::string& fileName) const {
    if (faults_.empty()) {
        return;
    }
    std::vector<Fault> faults = faults_;
    std::stable_sort(faults.begin(), faults.end(), [](const Fault& left, const Fault& right) {
        return std::tie(left.line, left.column) < std::tie(right.line, right.column);
    });
    std::string text = "Nothing was imported; correct \"" + fileName + "\":";
    for (std::size_t i = 0; i < std::min(faults.size(), Limit); ++i) {
        text += "\n  ";
        if (faults[i].line > 0) {
            text += "line " + std::to_string(faults[i].line);
            text += faults[i].column > 0 ? ", column " + std::to_string(faults[i].column) : "";
            text += ": ";
        }
        text += faults[i].text;
    }
    if (faults.size() > Limit) {
        text += "\n  and " + std::to_string(faults.size() - Limit) + " more";
    }
    throw BookError(text);
}

}  // namespace planbook
