// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/HostTable.h"
#include "macro/recording/MacroPlaces.h"

namespace planview {

/// A recorded step: the fields of a MACROREC row without its number. `docs/macros-recording.md` lists the commands.
struct MacroStep {
    std::string command;
    PlaceTexts columns;  ///< fields COLUMN and COLUMN_NAME
    PlaceTexts lines;    ///< fields LINE and LINE_NAME
    std::string value;

    friend bool operator==(const MacroStep& left, const MacroStep& right) noexcept {
        return left.command == right.command && left.columns.keys == right.columns.keys &&
               left.columns.names == right.columns.names && left.lines.keys == right.lines.keys &&
               left.lines.names == right.lines.names && left.value == right.value;
    }
};

/// A step that gives no values, with the keys of its columns and rows.
struct ViewStep {
    std::string command;
    std::vector<std::string> columns;
    std::vector<std::string> rows;
    std::string value;
};

/// The steps that give cells values, and the selected headings. Every other step has the name of a command.
namespace MacroCommand {
inline constexpr std::string_view Value = "VALUE";
inline constexpr std::string_view Drag = "DRAG";  ///< a point of the chart
inline constexpr std::string_view Paste = "PASTE";
inline constexpr std::string_view Fill = "FILL";
inline constexpr std::string_view Delete = "DELETE";
inline constexpr std::string_view Raise = "RAISE";
/// The selected headings.
inline constexpr std::string_view Mark = "MARK";
}  // namespace MacroCommand

[[nodiscard]] bool GivesValues(std::string_view command) noexcept;

// --- The values of a step

/// The values of a block of cells, line by line; no value for a cell that stays unchanged.
using StepValues = std::vector<std::vector<std::optional<std::string>>>;

/// The text for field VALUE: a single value if all cells get the same; else the values of a line separated by ";" and
/// the lines by "|", with "~" for an unchanged cell. A backslash escapes these characters; "\t" and "\n" are tab and
/// line end.
[[nodiscard]] std::string StepValueText(const StepValues& values);

/// Reads such a text for a block of this size. No value if the text is for another size.
[[nodiscard]] std::optional<StepValues> ReadStepValues(std::string_view text, std::size_t lines, std::size_t columns);

// --- Texts

/// The fields COMMAND, COLUMN, LINE, VALUE, COLUMN_NAME and LINE_NAME, separated by tabs.
[[nodiscard]] std::string StepFields(const MacroStep& step);
/// No value if the text is not a step.
[[nodiscard]] std::optional<MacroStep> ReadStepFields(std::string_view text);

/// The sentence of a command that gives no values, empty for a text that is no command: "%P" stands for the columns and
/// rows, "%V" for the value, "%S" for "on" or "off".
using StepSentence = std::string_view (*)(std::string_view command) noexcept;

/// "Raise Retail by 5 % from Jan to Jun", for the user.
[[nodiscard]] std::string ReadableStep(const MacroStep& step, StepSentence sentenceOf);

// --- Rows

/// The steps of a MACROREC table in the order of STEP; rows without a command are skipped.
[[nodiscard]] std::vector<MacroStep> ReadSteps(const HostTable& macroRec);
void WriteStep(const HostTable& macroRec, HostTable::Row row, int number, const MacroStep& step);
/// Clears the row.
void EmptyStep(const HostTable& macroRec, HostTable::Row row);

}  // namespace planview
