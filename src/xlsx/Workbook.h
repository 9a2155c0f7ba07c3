// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "xlsx/Sheet.h"

namespace planview::xlsx {

/// The texts of one workbook's cells, each kept once. A text stays until the workbook ends, also when no cell shows it
/// any more.
class TextPool {
public:
    [[nodiscard]] std::uint32_t Intern(std::string_view text);
    /// Adds a text without looking whether it is there already; for readers, whose source has seen to that.
    std::uint32_t Append(std::string text);
    [[nodiscard]] const std::string& operator[](std::uint32_t id) const { return texts_[id]; }
    [[nodiscard]] std::uint32_t Size() const noexcept { return static_cast<std::uint32_t>(texts_.size()); }

private:
    std::deque<std::string> texts_;  // a deque, so that the views below stay good
    std::unordered_map<std::string_view, std::uint32_t> ids_;
};

/// Whether and where the window on a sheet is split.
struct Panes {
    std::int32_t rows = 0;
    std::int32_t columns = 0;
    bool frozen = false;
};

struct PageSetup {
    bool landscape = false;
    std::int32_t firstTitleRow = 0;  ///< 0: no row is repeated
    std::int32_t lastTitleRow = 0;
    std::int32_t firstTitleColumn = 0;
    std::int32_t lastTitleColumn = 0;
};

/// Cells that show as one; only the first of them has a value.
struct MergedAreas {
    std::vector<Area> areas;  ///< by their first row

    [[nodiscard]] bool Contain(std::int32_t row, std::int32_t column) const noexcept;
};

enum class SheetVisibility : std::int8_t { Visible = -1, Hidden = 0, VeryHidden = 2 };

struct Worksheet {
    explicit Worksheet(std::string sheetName, StyleTable& styles) : name(std::move(sheetName)), sheet(styles) {}

    std::string name;
    Sheet sheet;
    MergedAreas merged;
    Panes panes;
    PageSetup page;
    SheetVisibility visibility = SheetVisibility::Visible;
    bool isProtected = false;
    bool loaded = true;  ///< false: SheetSource has still to be asked
};

struct Workbook;

/// Where the sheets of a workbook that was opened come from, each when it is first used.
class SheetSource {
public:
    virtual ~SheetSource() = default;
    /// Fills the sheet with this index; throws AutomationError where the file does not allow it.
    virtual void Load(Workbook& workbook, std::size_t index) = 0;

protected:
    SheetSource() = default;
    SheetSource(const SheetSource&) = default;
    SheetSource& operator=(const SheetSource&) = default;
};

/// What a workbook is made of, without its objects.
struct Workbook {
    StyleTable styles;
    TextPool texts;
    std::vector<std::string> numberFormats{"General"};
    std::vector<std::unique_ptr<Worksheet>> worksheets;
    std::string title;
    std::string subject;
    std::size_t activeSheet = 0;
    static constexpr std::uint16_t NoNumberFormat = 0xFFFF;
    std::unique_ptr<SheetSource> source;  ///< set for a workbook that was opened; such a one is read only
    bool closed = false;

    /// NoNumberFormat where the format is not known yet.
    [[nodiscard]] std::uint16_t FindNumberFormat(std::string_view format) const noexcept;
    [[nodiscard]] std::uint16_t AddNumberFormat(std::string format);
    /// Of one of its worksheets, from 0.
    [[nodiscard]] std::size_t PlaceOf(const Worksheet& worksheet) const noexcept;
    /// Brings a visible sheet other than this one to the front if this one is there; false where there is none.
    bool ShowAnotherThan(const Worksheet& worksheet) noexcept;
    /// Gives back what the sheets hold.
    void Close() noexcept;
};

}  // namespace planview::xlsx
