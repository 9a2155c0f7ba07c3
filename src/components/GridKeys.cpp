// SPDX-License-Identifier: MIT
#include "components/GridKeys.h"

#include <algorithm>
#include <cstddef>

namespace planview {

namespace {

constexpr std::size_t PrefixLength = 3;

/// The key's prefix, empty when no digits or anything but digits follow it.
std::string_view PrefixOf(std::string_view key) noexcept {
    if (key.size() <= PrefixLength) {
        return {};
    }
    const bool allDigits =
        std::all_of(key.begin() + PrefixLength, key.end(), [](char c) { return c >= '0' && c <= '9'; });
    return allDigits ? key.substr(0, PrefixLength) : std::string_view{};
}

}  // namespace

std::optional<ColumnArea> ColumnAreaOf(std::string_view key) noexcept {
    const std::string_view prefix = PrefixOf(key);
    if (prefix == "COL") {
        return ColumnArea::Center;
    }
    if (prefix == "FLC") {
        return ColumnArea::Left;
    }
    if (prefix == "FRC") {
        return ColumnArea::Right;
    }
    return std::nullopt;
}

std::optional<RowArea> RowAreaOf(std::string_view key) noexcept {
    const std::string_view prefix = PrefixOf(key);
    if (prefix == "ROW") {
        return RowArea::Center;
    }
    if (prefix == "FTR") {
        return RowArea::Top;
    }
    if (prefix == "FBR") {
        return RowArea::Bottom;
    }
    return std::nullopt;
}

}  // namespace planview
