// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "book/Book.h"
#include "planbook/TestFolder.h"

/// Value of every field, row by row; no value and the sizes of whole numbers are told apart from others only where a
/// file does.
[[nodiscard]] std::string DumpBook(const planbook::Book& book);
[[nodiscard]] std::string DumpTable(const planbook::Book& book, planbook::BookTable table);
[[nodiscard]] std::string DumpFile(const std::filesystem::path& file);

/// Four months, lines "Alpha" (1, 2, ...), "Beta" (10,5 ...) and "Gamma" (with a gap in the last month).
std::filesystem::path MakeSmallBook(const TestFolder& folder);

/// What can go wrong with a write; lasts as long as it lives.
class Obstacle {
public:
    enum class Kind { FullDisk, NoPermission, Locked };
    Obstacle(Kind kind, const std::filesystem::path& book);
    ~Obstacle();
    Obstacle(const Obstacle&) = delete;
    Obstacle& operator=(const Obstacle&) = delete;

private:
    struct State;
    std::unique_ptr<State> state_;
};
