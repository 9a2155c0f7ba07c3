// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <planview/Spreadsheet.h>

#include "automation/EnteredNumber.h"
#include "automation/TableSlots.h"
#include "grid/modGrid.h"
#include "spreadsheet/CaptionMatch.h"
#include "spreadsheet/DownloadRecord.h"
#include "spreadsheet/ProgressScope.h"
#include "spreadsheet/SheetCells.h"

namespace planview {

/// Finds out what a worksheet says of the grid's planning cells, by the captions in its first row and column and by
/// what the workbook keeps of its download.
///
/// Throws AutomationError: what the worksheet or a table throws, and Failed with a sentence for the user where the
/// sheet is none of this grid's.
class SheetReader {
public:
    SheetReader(const modGrid& driver, const TableSlots& tables, const Variant& worksheet,
                std::optional<DownloadRecord> record)
        : driver_(driver),
          grid_(driver.Grid()),
          columns_(tables.COLS_INDEX),
          lines_(tables.LINE_INDEX),
          cells_(worksheet),
          record_(std::move(record)) {}

    /// Finds the rows and columns; what does not belong together goes into the notes. To be called first.
    void ReadLabels(UploadPreview& preview);
    [[nodiscard]] int LineCount() const noexcept { return static_cast<int>(sheetRows_.size()); }
    /// Collects the cells that differ. Stops where the user cancels.
    void ReadData(UploadPreview& preview, ProgressScope& progress);

private:
    /// A row of an index table that stands on the sheet.
    template <class Id>
    struct Track {
        Id id;
        std::string key;
        std::string caption;  ///< as the grid shows it
        std::int16_t place;   ///< the sheet's row or column
        int recorded;         ///< its place in the record of the download, or CaptionMatch::None
    };
    enum class Axis { Periods, Lines };
    /// Both sides of an axis, and what belongs together.
    struct Sides {
        Axis axis;
        DownloadRecord::Axis table;
        std::vector<int> recorded;          ///< of each row of the table
        std::vector<std::string> captions;  ///< of each row of the table, as the download wrote them if that is known
        std::vector<std::string> onSheet;
        CaptionMatch match;
    };
    using Places = std::vector<std::pair<int, int>>;  ///< of the record and of the sheet

    [[nodiscard]] Sides ReadSides(Axis axis);
    [[nodiscard]] std::vector<std::string> ReadCaptions(Axis axis, std::size_t expected);
    /// Matches the captions of one axis; what is known of the other one tells repeated captions apart.
    void Match(Sides& sides, const Places& others);
    [[nodiscard]] Places ToldApart(const Sides& sides, const Places& others, const std::vector<int>& inTable,
                                   const std::vector<int>& onSheet);
    /// What a place of an axis holds, in the form in which values are compared.
    [[nodiscard]] std::vector<std::string> ValuesAt(Axis axis, int place, const Places& others);
    [[nodiscard]] std::vector<std::string> RecordedAt(Axis axis, int place, const Places& others) const;
    template <class Id, class Find>
    [[nodiscard]] std::vector<Track<Id>> TracksOf(const Sides& sides, UploadPreview& preview, const Find& find) const;
    /// What the download wrote into the cell; null where that is not known.
    [[nodiscard]] const std::string* Downloaded(int period, int line) const;
    /// What a cell of the sheet says: nothing, a number or some other text.
    struct Entry {
        std::optional<double> number;
        std::string text;
        [[nodiscard]] bool IsEmpty() const noexcept { return !number && text.empty(); }
    };
    /// A text that may be read in two ways, until all the others are known.
    struct OpenEntry {
        const Track<ColumnId>* column;
        const Track<RowId>* line;
        Entry entry;
        EnteredNumber read;
        std::size_t place;  ///< in the preview: before this change
    };

    [[nodiscard]] static Entry EntryOf(const Variant& value);
    [[nodiscard]] static bool IsSame(const Entry& entry, const std::string& contents);
    /// Texts in which the same values are the same.
    [[nodiscard]] static std::string Comparable(const Entry& entry);
    [[nodiscard]] static std::string Comparable(const std::string& contents);
    void ReadCell(const Track<ColumnId>& column, const Track<RowId>& line, UploadPreview& preview);
    void ReadOpenEntries(UploadPreview& preview);
    /// No value where the sheet says what the table holds. Asks the sheet's cell only for an empty entry.
    [[nodiscard]] std::optional<UploadChange> ChangeBy(const Entry& entry, const Track<ColumnId>& column,
                                                       const Track<RowId>& line);

    const modGrid& driver_;
    const GridControl& grid_;
    HostTable columns_;
    HostTable lines_;
    SheetCells cells_;
    std::optional<DownloadRecord> record_;
    std::vector<Track<ColumnId>> sheetColumns_;
    std::vector<Track<RowId>> sheetRows_;
    std::vector<OpenEntry> open_;
    MarkEvidence evidence_;
    std::uint64_t built_ = 0;
};

}  // namespace planview
