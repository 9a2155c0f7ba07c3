// SPDX-License-Identifier: MIT
#include "dialogs/RowAttributes.h"

#include "automation/BusyScope.h"
#include "dialogs/frmRow.h"
#include "grid/LockedLine.h"
#include "trace/ErrorTrap.h"

namespace planview {

using modPlan::TraceWrite;

void RowAttributes::Run() {
    if (open_) {
        return;
    }
    const BusyScope open(open_);
    ErrorTrap("GRIDCTL", "RowAttributes", [this] {
        TraceWrite("GRIDCTL", "{}", "#CHANGE ROW ATTRIBUTES#", "BEGIN");
        bool changed = false;
        {
            frmRow form(parts_.forms, parts_.messageBoxes, parts_.chooseColor);
            const LoadedForm loaded(parts_.forms, form);
            changed = Edit(form);
        }
        if (changed) {
            parts_.hostUpdate.StartUpdate();
        }
    });
}

bool RowAttributes::Edit(frmRow& form) const {
    form.Set_Text();
    form.Set_Layoutmode(parts_.settings.layoutMode);
    const Template line = FindTemplate();
    if (line.row == 0) {
        return false;
    }
    Fill(form, line);
    parts_.forms.ShowModal(form);
    if (form.ButtonPressed != "OK") {
        return false;
    }
    // While the dialog was open, the host may have built the grid anew from other rows.
    if (line.row > line.table.RowCount() || line.table.Text(line.row, "GRID_ID") != line.key) {
        return false;
    }
    Take(form, line);
    parts_.driver.Grid().Redraw();
    TraceWrite("GRIDCTL", "{changed}", "RowAttributes", "");
    parts_.chartStep();
    return true;
}

RowAttributes::Template RowAttributes::FindTemplate() const {
    const HostTable table = parts_.tables.LINE_INDEX;
    const int count = table.RowCount();
    for (int i = 1; i <= count; ++i) {
        const auto row = static_cast<HostTable::Row>(i);
        std::string key = table.Text(row, "GRID_ID");
        if (!key.empty() && parts_.driver.HeadingSelected({{}, key})) {
            return {table, row, std::move(key)};
        }
    }
    return {};
}

void RowAttributes::Fill(frmRow& form, const Template& line) const {
    const HostTable& table = line.table;
    if (const std::optional<Cell> label = parts_.driver.Grid().FindCell({LabelColumnKey, line.key})) {
        form.lblRowLabel = parts_.driver.Grid().Contents(*label);
    }
    form.chkRelief.Value = table.Flag(line.row, "RELIEF") ? 1 : 0;
    form.chkChart.Value = ChartMark(line) == "X" ? 1 : 0;
    form.Set_Alignment(table.Int16(line.row, "ROW_ALIGN"));
    form.Set_Height(table.Int16(line.row, "ROW_HEIGHT"));
    form.Set_BgColor(table.Int16(line.row, "ROW_BG"));
    form.Set_FgColor(table.Int16(line.row, "ROW_FG"));
    form.Set_Font(table.Text(line.row, "ROW_FONT"));
    FillSample(form, line);
}

/// Empty without the field, which a host that has no chart need not have.
std::string RowAttributes::ChartMark(const Template& line) {
    std::string mark;
    ResumeNext([&] { mark = line.table.Text(line.row, "SHOW_CHART"); });
    return mark;
}

/// What the user has not changed stays as it is: the marks of the forecast view are not shown by the tick.
void RowAttributes::PutChartMark(const frmRow& form, const Template& line) {
    const std::string mark = ChartMark(line);
    const bool ticked = form.chkChart.Value == 1;
    const bool changed = ticked != (mark == "X");
    const auto put = [&] { line.table.Put(line.row, "SHOW_CHART", changed ? Variant(ticked ? "X" : "") : mark); };
    if (changed) {
        ErrorTrap("GRIDCTL", "SHOW_CHART", put);
    } else {
        ResumeNext(put);
    }
}

void RowAttributes::FillSample(frmRow& form, const Template& line) const {
    constexpr std::size_t MostCells = 3;
    const GridControl& grid = parts_.driver.Grid();
    RowSample& sample = form.Sample;
    sample.format = line.table.Text(line.row, "ROW_FORMAT");
    sample.readOnly = line.table.Flag(line.row, "READONLY");
    sample.textLine = line.table.Flag(line.row, "ROW_TEXT");
    sample.helpLine = line.table.Text(line.row, "LINETYPE") == "H";
    sample.background = parts_.settings.backgroundColor;
    sample.gridLines = parts_.settings.gridLineColor;
    const std::optional<RowId> row = grid.FindRow(line.key);
    for (const ColumnId column : grid.Columns(ColumnArea::Center)) {
        if (row && sample.contents.size() < MostCells && !grid.Column(column).hidden) {
            const std::optional<Cell> heading = grid.FindCell({grid.Column(column).key, HeadingRowKey});
            sample.headings.push_back(heading ? grid.Contents(*heading) : std::string());
            sample.contents.push_back(grid.Contents({column, *row}));
        }
    }
}

void RowAttributes::Take(const frmRow& form, const Template& line) const {
    constexpr bool NoRedraw = false;
    const HostTable& table = line.table;
    const HostTable::Row row = line.row;
    modGrid& driver = parts_.driver;
    const CellKeyView keys{{}, line.key};

    if (table.Text(row, "LINETYPE") == "H" || driver.HeadingSelected(keys)) {
        PutChartMark(form, line);
        // An index that is no colour stays in the table until the user chooses one.
        if (form.picBgColor.HasColor()) {
            table.Put(row, "ROW_BG", form.Get_BgColor());
            driver.CenterBgColor(keys, form.Get_BgColor(), NoRedraw);
        }
        if (form.picFgColor.HasColor()) {
            table.Put(row, "ROW_FG", form.Get_FgColor());
            driver.CenterFgColor(keys, form.Get_FgColor(), NoRedraw);
        }
        if (IsLockedLine(table, row)) {
            ShowLocked(driver, keys);
        }
    }
    if (table.Flag(row, "ROW_TEXT")) {
        PutChartMark(form, line);
    }
    const bool relief = form.chkRelief.Value == 1;
    const std::int16_t height = form.Height().value_or(table.Int16(row, "ROW_HEIGHT"));
    table.PutFlag(row, "RELIEF", relief);
    table.Put(row, "ROW_ALIGN", form.Alignment());
    table.Put(row, "ROW_HEIGHT", height);
    table.Put(row, "ROW_FONT", form.FontRC);
    driver.CenterRelief(keys, relief, NoRedraw);
    driver.CenterAlignment(keys, form.Alignment(), NoRedraw);
    driver.RowHeight(keys.row, height, NoRedraw);
    driver.CenterFont(keys, form.FontRC, NoRedraw);
    driver.DeleteSelection(keys, NoRedraw);
    table.PutFlag(row, "ROW_MARKED", false);  // the mark goes with the selection
}

}  // namespace planview
