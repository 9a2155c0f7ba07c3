// SPDX-License-Identifier: MIT
#include "import/NamesFile.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <set>
#include <utility>

#include "import/TextFile.h"

namespace planbook {

namespace {

constexpr int MaxIndent = 5;

class NamesReader {
public:
    explicit NamesReader(Faults& faults) : faults_(faults) {}

    NamesFile Read(std::string_view text) {
        while (!text.empty()) {
            ++line_;
            const std::size_t end = std::min(text.find('\n'), text.size());
            ReadLine(Trimmed(text.substr(0, end)));
            text.remove_prefix(std::min(end + 1, text.size()));
        }
        for (LineName& line : names_.lines) {
            if (line.unit.empty()) {
                line.unit = names_.unit;
            }
        }
        return std::move(names_);
    }

private:
    enum class Section { None, Book, Chart, Lines, Formulas, Macros };

    void ReadLine(std::string_view text) {
        if (text.empty() || text.front() == '#') {
            return;
        }
        if (text.front() == '[') {
            ReadSection(text);
            return;
        }
        const std::size_t equals = text.find('=');
        if (equals == std::string_view::npos) {
            faults_.Add(line_, 0, Shown(text) + " is no setting; it needs a name, \"=\" and a value");
            return;
        }
        const std::string name(Trimmed(text.substr(0, equals)));
        const std::string_view value = Trimmed(text.substr(equals + 1));
        if (section_ != Section::None && !seen_.insert({section_, name}).second) {
            faults_.Add(line_, 0, Shown(name) + " stands twice in this section");
            return;
        }
        switch (section_) {
            case Section::Book:
                ReadBookSetting(name, value);
                break;
            case Section::Chart:
                ReadChartSetting(name, value);
                break;
            case Section::Lines:
                ReadLineName(name, value);
                break;
            case Section::Formulas:
                names_.formulas.push_back(ReadFormulaText(name, value, line_, faults_));
                break;
            case Section::Macros:
                names_.macros.push_back(ReadMacroText(name, value, line_, faults_));
                break;
            case Section::None:
                faults_.Add(line_, 0,
                            "this stands before the first section; begin with [book], [chart], [lines], [formulas] or "
                            "[macros]");
                break;
        }
    }

    void ReadSection(std::string_view text) {
        if (text == "[book]") {
            section_ = Section::Book;
        } else if (text == "[chart]") {
            section_ = Section::Chart;
            names_.chart.shown = true;
        } else if (text == "[lines]") {
            section_ = Section::Lines;
        } else if (text == "[formulas]") {
            section_ = Section::Formulas;
        } else if (text == "[macros]") {
            section_ = Section::Macros;
        } else {
            faults_.Add(
                line_, 0,
                "unknown section " + Shown(text) + "; there are [book], [chart], [lines], [formulas] and [macros]");
        }
    }

    void ReadBookSetting(const std::string& name, std::string_view value) {
        if (name == "title") {
            names_.title = value;
        } else if (name == "unit") {
            names_.unit = value;
        } else if (name == "source") {
            names_.source = value;
        } else if (name == "open-at") {
            names_.openAt = value;
        } else {
            faults_.Add(line_, 0, "unknown setting " + Shown(name) + "; there are title, unit, source and open-at");
        }
    }

    void ReadChartSetting(const std::string& name, std::string_view value) {
        ChartNames& chart = names_.chart;
        if (name == "title") {
            chart.title = value;
        } else if (name == "from") {
            chart.from = value;
        } else if (name == "to") {
            chart.to = value;
        } else if (name == "optimum") {
            chart.optimum = ReadAmount(name, value);
        } else if (name == "range-from") {
            chart.rangeFrom = ReadAmount(name, value);
        } else if (name == "range-to") {
            chart.rangeTo = ReadAmount(name, value);
        } else {
            faults_.Add(
                line_, 0,
                "unknown setting " + Shown(name) + "; there are title, from, to, optimum, range-from and range-to");
        }
    }

    /// The chart shows limits above zero only.
    std::optional<double> ReadAmount(const std::string& name, std::string_view text) {
        double amount = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), amount);
        if (error != std::errc() || end != text.data() + text.size() || !(amount > 0) || !std::isfinite(amount)) {
            faults_.Add(line_, 0, name + ": " + Shown(text) + " is no number above 0; write it with a point");
            return std::nullopt;
        }
        return amount;
    }

    void ReadLineName(const std::string& column, std::string_view value) {
        const std::vector<std::string_view> parts = Divide(value);
        enum Part { Label, Kind, Unit, Indent, Chart, PartCount };
        if (parts.size() > PartCount) {
            faults_.Add(line_, 0, "too many parts; a line is: name = label | kind | unit | indent | chart");
            return;
        }
        const auto part = [&](Part which) { return which < parts.size() ? parts[which] : std::string_view(); };
        LineName line;
        line.column = column;
        line.label = part(Label).empty() ? ReadableName(column) : std::string(part(Label));
        line.kind = ReadKind(part(Kind));
        line.unit = part(Unit);
        line.indent = ReadIndent(part(Indent));
        line.chart = ReadChartUse(part(Chart));
        names_.lines.push_back(std::move(line));
    }

    static std::vector<std::string_view> Divide(std::string_view text) {
        std::vector<std::string_view> parts;
        while (true) {
            const std::size_t bar = text.find('|');
            parts.push_back(Trimmed(text.substr(0, bar)));
            if (bar == std::string_view::npos) {
                return parts;
            }
            text.remove_prefix(bar + 1);
        }
    }

    LineKind ReadKind(std::string_view text) {
        if (text == "total") {
            return LineKind::Total;
        }
        if (text == "help") {
            return LineKind::Help;
        }
        if (!text.empty() && text != "line") {
            faults_.Add(line_, 0, "unknown kind " + Shown(text) + "; there are line, total and help");
        }
        return LineKind::Plain;
    }

    ChartUse ReadChartUse(std::string_view text) {
        constexpr std::array<std::pair<std::string_view, ChartUse>, 4> Uses{
            {{"column", ChartUse::Column},
             {"line", ChartUse::Line},
             {"stacked-line", ChartUse::StackedLine},
             {"stacked-line-100", ChartUse::StackedLine100}}};
        for (const auto& [name, use] : Uses) {
            if (text == name) {
                return use;
            }
        }
        if (!text.empty()) {
            faults_.Add(
                line_, 0,
                "unknown chart type " + Shown(text) + "; there are column, line, stacked-line and stacked-line-100");
        }
        return ChartUse::None;
    }

    int ReadIndent(std::string_view text) {
        if (text.empty()) {
            return 0;
        }
        if (text.size() != 1 || text.front() < '0' || text.front() > '0' + MaxIndent) {
            faults_.Add(line_, 0, "the indent " + Shown(text) + " is no number from 0 to " + std::to_string(MaxIndent));
            return 0;
        }
        return text.front() - '0';
    }

    Faults& faults_;
    NamesFile names_;
    Section section_ = Section::None;
    std::set<std::pair<Section, std::string>> seen_;
    int line_ = 0;
};

void CheckPeriod(const SourceTable& source, const std::string& setting, const std::string& period, Faults& faults) {
    if (!period.empty() && std::find(source.periods.begin(), source.periods.end(), period) == source.periods.end()) {
        faults.Add(0, 0, setting + " is " + Shown(period) + ", which is no period of the table of numbers");
    }
}

}  // namespace

NamesFile ReadNamesFile(std::string_view text, Faults& faults) {
    CheckEncoding(text, faults);
    return NamesReader(faults).Read(text);
}

void CheckNamesAgainst(const SourceTable& source, const NamesFile& names, Faults& faults) {
    for (const MacroText& macro : names.macros) {
        for (const std::string& line : LinesIn(macro)) {
            if (std::none_of(source.lines.begin(), source.lines.end(),
                             [&](const SourceLine& candidate) { return candidate.name == line; })) {
                faults.Add(macro.line, 0, "the table of numbers has no line " + Shown(line));
            }
        }
        for (const std::string& period : {macro.from, macro.to}) {
            if (!period.empty() &&
                std::find(source.periods.begin(), source.periods.end(), period) == source.periods.end()) {
                faults.Add(macro.line, 0, Shown(period) + " is no period of the table of numbers");
            }
        }
    }
    for (const LineName& line : names.lines) {
        const bool known = std::any_of(source.lines.begin(), source.lines.end(),
                                       [&](const SourceLine& candidate) { return candidate.name == line.column; });
        if (!known) {
            faults.Add(0, 0, "it names the line " + Shown(line.column) + ", which the table of numbers does not have");
        }
    }
    CheckPeriod(source, "open-at", names.openAt, faults);
    CheckPeriod(source, "the chart's from", names.chart.from, faults);
    CheckPeriod(source, "the chart's to", names.chart.to, faults);
}

std::string ReadableName(std::string_view name) {
    std::string readable(name);
    std::replace(readable.begin(), readable.end(), '_', ' ');
    if (!readable.empty() && readable.front() >= 'a' && readable.front() <= 'z') {
        readable.front() = static_cast<char>(readable.front() - 'a' + 'A');
    }
    return readable;
}

}  // namespace planbook
