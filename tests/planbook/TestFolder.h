// SPDX-License-Identifier: MIT
#pragma once

#include <QTemporaryDir>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>

/// A folder of its own for each test.
class TestFolder {
public:
    [[nodiscard]] std::filesystem::path Path(std::string_view name) const;
    std::filesystem::path Write(std::string_view name, std::string_view contents) const;
    /// Every file's name (hidden ones too) with its contents, to see that a failure changed nothing.
    [[nodiscard]] std::map<std::string, std::string> Contents() const;

private:
    QTemporaryDir folder_;
};

[[nodiscard]] std::string ReadFile(const std::filesystem::path& file);

/// Runs SQL statements, divided by ";", on a book behind the program's back.
void ChangeBook(const std::filesystem::path& file, std::string_view statements);

/// One statement, which may have ";" in it.
void RunOnBook(const std::filesystem::path& file, std::string_view statement);

/// The text of the exception that `action` throws; empty when it throws none.
template <class Exception, class Action>
std::string MessageOf(Action action) {
    try {
        action();
    } catch (const Exception& error) {
        return error.what();
    }
    return {};
}

[[nodiscard]] inline bool Contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}
