// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <charconv>
#include <concepts>
#include <string>
#include <string_view>
#include <type_traits>

#include "automation/Numbers.h"
#include "trace/modPlan.h"

namespace planview {

/// A text that is put together piece by piece, without the heap as long as it is of usual length. Reads as a view.
class TraceBuffer {
public:
    void Append(std::string_view text) {
        if (overflow_.empty() && size_ + text.size() <= near_.size()) {
            text.copy(near_.data() + size_, text.size());
            size_ += text.size();
            return;
        }
        if (overflow_.empty()) {
            overflow_.assign(near_.data(), size_);
        }
        overflow_ += text;
    }
    void Append(double number) { Append(NumberText(number, modPlan::TraceDecimalMark)); }
    template <std::same_as<bool> Flag>
    void Append(Flag flag) {
        Append(flag ? std::string_view("True") : std::string_view("False"));
    }
    template <std::integral Integer>
    requires(!std::same_as<Integer, bool>) void Append(Integer number) {
        std::array<char, 24> digits;
        const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), number);
        Append(std::string_view(digits.data(), static_cast<std::size_t>(result.ptr - digits.data())));
    }

    /// A code as its number.
    template <class Code>
    requires std::is_enum_v<Code>
    void Append(Code code) { Append(static_cast<std::underlying_type_t<Code>>(code)); }

    operator std::string_view() const noexcept {
        return overflow_.empty() ? std::string_view(near_.data(), size_) : std::string_view(overflow_);
    }
    [[nodiscard]] std::string Text() const { return std::string(std::string_view(*this)); }

private:
    std::array<char, 160> near_;  // what lies behind size_ is never read
    std::size_t size_ = 0;
    std::string overflow_;
};

/// The parameter text of a trace entry from its pieces: texts as they are, booleans as True or False, numbers with the
/// user's decimal mark. Called only inside a test of `TraceEnabled`.
template <class... Pieces>
[[nodiscard]] TraceBuffer TraceText(const Pieces&... pieces) {
    TraceBuffer text;
    (text.Append(pieces), ...);
    return text;
}

}  // namespace planview
