// SPDX-License-Identifier: MIT
#include "clipboard/BlockText.h"

#include <algorithm>
#include <utility>

namespace planview {

namespace {

bool NeedsQuotes(std::string_view cell) noexcept {
    return cell.find_first_of("\t\"\r\n") != std::string_view::npos;
}

void AppendCell(std::string& out, std::string_view cell) {
    if (!NeedsQuotes(cell)) {
        out += cell;
        return;
    }
    out += '"';
    for (const char c : cell) {
        out += c;
        if (c == '"') {
            out += '"';
        }
    }
    out += '"';
}

/// Reads a block character by character.
class BlockReader {
public:
    explicit BlockReader(std::string_view text) : text_(text) {}

    TextBlock Read() {
        while (at_ < text_.size() && cells_ < MaxBlockCells) {
            ReadCell();
        }
        return std::move(block_);
    }

private:
    void ReadCell() {
        if (lineStarts_) {
            block_.emplace_back();
            lineStarts_ = false;
        }
        std::string cell = text_[at_] == '"' ? ReadQuoted() : std::string();
        const std::size_t end = std::min(text_.find_first_of("\t\r\n", at_), text_.size());
        cell += text_.substr(at_, end - at_);
        block_.back().push_back(std::move(cell));
        ++cells_;
        at_ = end;
        EndCell();
    }

    /// Steps over the tab or line end behind a cell. A tab at the very end has one more, empty cell behind it.
    void EndCell() {
        if (at_ >= text_.size()) {
            return;
        }
        const char c = text_[at_++];
        if (c == '\t') {
            if (at_ == text_.size()) {
                block_.back().emplace_back();
            }
            return;
        }
        if (c == '\r' && at_ < text_.size() && text_[at_] == '\n') {
            ++at_;
        }
        lineStarts_ = true;
    }

    std::string ReadQuoted() {
        std::string cell;
        ++at_;
        while (at_ < text_.size()) {
            const char c = text_[at_++];
            if (c != '"') {
                cell += c;
            } else if (at_ < text_.size() && text_[at_] == '"') {
                cell += '"';
                ++at_;
            } else {
                break;
            }
        }
        return cell;
    }

    std::string_view text_;
    TextBlock block_;
    std::size_t at_ = 0;
    std::size_t cells_ = 0;
    bool lineStarts_ = true;
};

}  // namespace

std::string FormatBlock(const TextBlock& block) {
    std::string out;
    for (const std::vector<std::string>& row : block) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (i > 0) {
                out += '\t';
            }
            AppendCell(out, row[i]);
        }
        out += '\n';
    }
    return out;
}

TextBlock ParseBlock(std::string_view text) {
    return BlockReader(text).Read();
}

}  // namespace planview
