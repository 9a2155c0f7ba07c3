// SPDX-License-Identifier: MIT
#include "macro/recording/MacroStep.h"

#include <algorithm>
#include <array>
#include <utility>

namespace planview {

namespace {

constexpr char Tab = '\t';
constexpr char CellMark = ';';
constexpr char LineMark = '|';
constexpr char Escape = '\\';
constexpr std::string_view LeftAlone = "~";

std::string Escaped(const std::string& text) {
    std::string escaped;
    for (const char c : text) {
        switch (c) {
            case Tab:
                escaped += "\\t";
                break;
            case '\n':
                escaped += "\\n";
                break;
            case CellMark:
            case LineMark:
            case Escape:
            case '~':
                escaped += Escape;
                [[fallthrough]];
            default:
                escaped += c;
        }
    }
    return escaped;
}

bool AllAlike(const StepValues& values) {
    const auto& first = values.front().front();
    return first && std::all_of(values.begin(), values.end(), [&](const auto& line) {
               return std::all_of(line.begin(), line.end(), [&](const auto& value) { return value == first; });
           });
}

/// Splits a text of values.
StepValues Parse(std::string_view text) {
    StepValues values(1);
    std::string value;
    bool leftAlone = false;
    const auto end = [&] {
        values.back().push_back(leftAlone ? std::nullopt : std::optional(std::exchange(value, {})));
        leftAlone = false;
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == Escape && i + 1 < text.size()) {
            const char next = text[++i];
            value += next == 't' ? Tab : next == 'n' ? '\n' : next;
        } else if (c == CellMark || c == LineMark) {
            end();
            if (c == LineMark) {
                values.emplace_back();
            }
        } else if (c == LeftAlone.front()) {
            leftAlone = true;
        } else {
            value += c;
        }
    }
    end();
    return values;
}

// --- Texts for the user

struct ValueSentence {
    std::string_view command;
    std::string_view text;
};

constexpr auto ValueSentences = std::to_array<ValueSentence>({
    {MacroCommand::Value, "Set %P to %V"},
    {MacroCommand::Drag, "Drag %P in the chart to %V"},
    {MacroCommand::Paste, "Paste %V into %P"},
    {MacroCommand::Fill, "Fill %P with %V"},
    {MacroCommand::Delete, "Empty %P"},
});

/// "Retail from Jan to Jun".
std::string PlacesOf(const MacroStep& step) {
    const std::string lines = ReadablePlaces(step.lines);
    const std::string periods = ReadablePlaces(step.columns);
    if (lines.empty() || periods.empty()) {
        return lines.empty() ? periods : lines;
    }
    return lines + (SinglePlace(step.columns.keys).empty() ? " from " : " in ") + periods;
}

std::string ShortValue(const std::string& value) {
    if (value.empty()) {
        return "nothing";
    }
    const StepValues values = Parse(value);
    if (values.size() == 1 && values.front().size() == 1) {
        constexpr std::size_t Longest = 40;
        const std::string text = values.front().front().value_or(std::string());
        return text.size() <= Longest ? text : "a text";
    }
    std::size_t count = 0;
    for (const auto& line : values) {
        count += static_cast<std::size_t>(
            std::count_if(line.begin(), line.end(), [](const auto& each) { return each.has_value(); }));
    }
    return std::to_string(count) + " values";
}

void Replace(std::string& text, std::string_view mark, const std::string& by) {
    if (const std::size_t at = text.find(mark); at != std::string::npos) {
        text.replace(at, mark.size(), by);
    }
}

std::string RaiseText(const MacroStep& step) {
    const bool down = step.value.starts_with('-');
    const std::string amount = down ? step.value.substr(1) : step.value;
    const std::string periods = ReadablePlaces(step.columns);
    return (down ? "Lower " : "Raise ") + ReadablePlaces(step.lines) + " by " + amount + " %" +
           (periods.empty()                          ? ""
            : SinglePlace(step.columns.keys).empty() ? " from "
                                                     : " in ") +
           periods;
}

}  // namespace

bool GivesValues(std::string_view command) noexcept {
    using namespace MacroCommand;
    return command == Value || command == Drag || command == Paste || command == Fill || command == Delete ||
           command == Raise;
}

std::string StepValueText(const StepValues& values) {
    if (values.empty() || values.front().empty()) {
        return {};
    }
    if (AllAlike(values)) {
        return Escaped(*values.front().front());
    }
    std::string text;
    for (std::size_t line = 0; line < values.size(); ++line) {
        if (line > 0) {
            text += LineMark;
        }
        for (std::size_t column = 0; column < values[line].size(); ++column) {
            if (column > 0) {
                text += CellMark;
            }
            const std::optional<std::string>& value = values[line][column];
            text += value ? Escaped(*value) : std::string(LeftAlone);
        }
    }
    return text;
}

std::optional<StepValues> ReadStepValues(std::string_view text, std::size_t lines, std::size_t columns) {
    StepValues values = Parse(text);
    if (values.size() == 1 && values.front().size() == 1) {
        return StepValues(lines, std::vector<std::optional<std::string>>(columns, values.front().front()));
    }
    const bool fits = values.size() == lines && std::all_of(values.begin(), values.end(),
                                                            [&](const auto& line) { return line.size() == columns; });
    return fits ? std::optional(std::move(values)) : std::nullopt;
}

std::string StepFields(const MacroStep& step) {
    return step.command + Tab + step.columns.keys + Tab + step.lines.keys + Tab + step.value + Tab +
           step.columns.names + Tab + step.lines.names;
}

std::optional<MacroStep> ReadStepFields(std::string_view text) {
    std::array<std::string, 6> fields;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const std::size_t end = text.find(Tab);
        fields[i] = text.substr(0, end);
        if (end == std::string_view::npos) {
            // The captions are optional.
            constexpr std::size_t ValueField = 3;
            return i >= ValueField && !fields[0].empty()
                       ? std::optional(MacroStep{fields[0], {fields[1], fields[4]}, {fields[2], fields[5]}, fields[3]})
                       : std::nullopt;
        }
        text.remove_prefix(end + 1);
    }
    return std::nullopt;
}

std::string ReadableStep(const MacroStep& step, StepSentence sentenceOf) {
    if (step.command == MacroCommand::Raise) {
        return RaiseText(step);
    }
    const auto* const found = std::find_if(ValueSentences.begin(), ValueSentences.end(),
                                           [&](const ValueSentence& each) { return each.command == step.command; });
    std::string text(found == ValueSentences.end() ? sentenceOf(step.command) : found->text);
    if (text.empty()) {
        return step.command;
    }
    Replace(text, "%S", step.value == "X" ? "on" : "off");
    Replace(text, "%V", ShortValue(step.value));
    Replace(text, "%P", PlacesOf(step));
    return text;
}

std::vector<MacroStep> ReadSteps(const HostTable& macroRec) {
    std::vector<std::pair<int, MacroStep>> numbered;
    const int count = macroRec.RowCount();
    for (int i = 1; i <= count; ++i) {
        const auto row = static_cast<HostTable::Row>(i);
        if (std::string command = macroRec.Text(row, "COMMAND"); !command.empty()) {
            numbered.push_back({macroRec.Int16(row, "STEP"),
                                {std::move(command),
                                 {macroRec.Text(row, "COLUMN"), macroRec.Text(row, "COLUMN_NAME")},
                                 {macroRec.Text(row, "LINE"), macroRec.Text(row, "LINE_NAME")},
                                 macroRec.Text(row, "VALUE")}});
        }
    }
    std::stable_sort(numbered.begin(), numbered.end(),
                     [](const auto& left, const auto& right) { return left.first < right.first; });
    std::vector<MacroStep> steps;
    for (auto& [number, step] : numbered) {
        steps.push_back(std::move(step));
    }
    return steps;
}

void WriteStep(const HostTable& macroRec, HostTable::Row row, int number, const MacroStep& step) {
    macroRec.Put(row, "STEP", number);
    macroRec.Put(row, "COLUMN", step.columns.keys);
    macroRec.Put(row, "LINE", step.lines.keys);
    macroRec.Put(row, "VALUE", step.value);
    macroRec.Put(row, "COLUMN_NAME", step.columns.names);
    macroRec.Put(row, "LINE_NAME", step.lines.names);
    macroRec.Put(row, "COMMAND", step.command);  // last: a row without it is no step
}

void EmptyStep(const HostTable& macroRec, HostTable::Row row) {
    macroRec.Put(row, "COMMAND", "");
    WriteStep(macroRec, row, 0, {});
}

}  // namespace planview
