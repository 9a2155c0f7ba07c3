// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string_view>

#include "automation/EnteredNumber.h"
#include "automation/NumberFormat.h"
#include "automation/Numbers.h"

namespace {

using namespace planview;

void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// What is written of a number is read back as the same number.
void CheckRoundTrip(double number) {
    for (const char mark : {'.', ','}) {
        const auto again = TryParseNumber(NumberText(number, mark));
        Require(again && std::isfinite(*again) && std::abs(*again - number) <= std::abs(number) * 1e-14);
    }
}

/// What is entered reaches a table as a text in which tables read the number that the cell then shows.
void CheckEntered(std::string_view text, const NumberFormat* format) {
    const std::optional<EnteredNumber> read = ReadEntered(text, format);
    if (!read) {
        return;
    }
    Require(std::isfinite(read->number) && (!read->other || std::isfinite(*read->other)));
    CheckRoundTrip(read->number);
    const auto stored = TryParseNumber(TableText(text, read->number));
    Require(stored && std::abs(*stored - read->number) <= std::abs(read->number) * 1e-14);
    if (format) {
        static_cast<void>(format->Format(*stored));
        static_cast<void>(format->ColorOf(*stored));
    }
}

}  // namespace

/// The first line is a number code, the rest an entered text; the whole is a table's text, too. Whatever is read as a
/// number is finite, and what tables read is read when it is entered, too.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view all(reinterpret_cast<const char*>(data), size);
    if (const auto number = TryParseNumber(all)) {
        CheckRoundTrip(*number);
        const auto entered = ReadEntered(all, nullptr);
        Require(entered && entered->number == *number);
    }
    CheckEntered(all, nullptr);
    const std::size_t end = std::min(all.find('\n'), size);
    const std::optional<NumberFormat> format = NumberFormat::Parse(all.substr(0, end));
    if (format && end < size) {
        CheckEntered(all.substr(end + 1), &*format);
        CheckEntered(format->Format(static_cast<double>(size) / 7), &*format);
        static_cast<void>(format->FormatText(all));
    }
    return 0;
}
