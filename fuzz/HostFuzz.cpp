// SPDX-License-Identifier: MIT
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <planview/Events.h>
#include <planview/MemoryTable.h>
#include <planview/PlanView.h>

#include "FuzzBytes.h"
#include "automation/TableSlots.h"
#include "components/GridControl.h"
#include "components/chart/ChartControl.h"
#include "control/ControlParts.h"
#include "support/ScriptedPlatform.h"
#include "trace/frmTrace.h"
#include "trace/modPlan.h"

namespace {

using namespace planview;
using planview::fuzz::Bytes;

constexpr int MaxSteps = 200;
/// A host that calls back from within a callback does not do so for ever.
constexpr int MaxDepth = 3;

/// One control with its host, which answers, throws and calls back as the input says.
class Host final : public EventSink {
public:
    explicit Host(Bytes input) : input_(input) {}

    void Run();
    void OnEvent(EventId, std::span<const Variant>) override {
        if (input_.Below(4) == 3) {
            CallBack(true);
        }
        ThrowSometimes();
    }

    [[nodiscard]] Variant AnyValue();
    /// One in many answers is none that a table should give.
    [[nodiscard]] bool Misbehaves() { return input_.Below(8) == 7; }
    void ThrowSometimes();
    /// Something that a host does while the control waits for it. Only an event may end the control.
    void CallBack(bool mayEnd);

private:
    struct Deeper {
        int& depth;
        explicit Deeper(int& d) : depth(d) { ++depth; }
        ~Deeper() { --depth; }
        Deeper(const Deeper&) = delete;
        Deeper& operator=(const Deeper&) = delete;
    };

    void GiveTables();
    void GiveTable(std::size_t which);
    void Step(bool mayEnd);
    void UseGrid();
    void UseChart();
    void UseMenu();
    [[nodiscard]] std::optional<Cell> AnyCell();

    Bytes input_;
    int depth_ = 0;
    test::ScriptedPlatform platform_;
    std::shared_ptr<PlanView> control_;  ///< an event may end it; shared with nobody but the views below
};

/// A table that keeps what is put, answers it most of the time, and the rest of the time does as it likes.
class HostileTable final : public AutomationObject {
public:
    HostileTable(Host& host, std::string_view name) : host_(host), table_(MemoryTable::WithFieldsOf(name)) {}

    [[nodiscard]] MemoryTable& Rows() noexcept { return *table_; }

    DispatchId IdOf(std::string_view name) const override {
        if (host_.Misbehaves()) {
            host_.ThrowSometimes();
        }
        return table_->IdOf(name);
    }
    Variant Get(DispatchId member, Arguments arguments) override {
        if (host_.Misbehaves()) {
            host_.CallBack(false);
            host_.ThrowSometimes();
            return host_.AnyValue();
        }
        return table_->Get(member, arguments);
    }
    void Put(DispatchId member, Arguments arguments, const Variant& value) override {
        if (host_.Misbehaves()) {
            host_.CallBack(false);
            host_.ThrowSometimes();
        }
        table_->Put(member, arguments, value);
    }
    Variant Call(DispatchId member, Arguments arguments) override {
        if (host_.Misbehaves()) {
            host_.CallBack(false);
            host_.ThrowSometimes();
            return host_.AnyValue();
        }
        return table_->Call(member, arguments);
    }

private:
    Host& host_;
    std::shared_ptr<MemoryTable> table_;
};

Variant Host::AnyValue() {
    switch (input_.Below(12)) {
        case 0:
            return {};
        case 1:
            return "X";
        case 2:
        case 3:
        case 4:
            return static_cast<std::int16_t>(input_.Below(6));
        case 5:
            return input_.Text();
        case 6:
            return static_cast<std::int16_t>(input_.Number());
        case 7:
            return input_.Number();
        case 8:
            return input_.Number() / 7.0 * input_.Number();
        case 9:
            return input_.Byte() % 2 != 0;
        case 10:
            return Variant::Nothing();
        default:
            return Variant(std::make_shared<HostileTable>(*this, "TAB"));
    }
}

void Host::ThrowSometimes() {
    switch (input_.Below(12)) {
        case 1:
            throw AutomationError(AutomationErrorCode::Failed, input_.Text());
        case 2:
            throw std::runtime_error("the host fails");
        case 3:
            throw 42;  // NOLINT(hicpp-exception-baseclass): hosts do
        default:
            return;
    }
}

void Host::CallBack(bool mayEnd) {
    if (depth_ < MaxDepth && control_) {
        Step(mayEnd);
    }
}

void Host::GiveTable(std::size_t which) {
    const std::string_view name = DescribeTables()[which].name;
    const std::span<const std::string_view> fields = DescribeTables()[which].fields;
    auto table = std::make_shared<HostileTable>(*this, name);
    for (int rows = which == 0 ? 1 : input_.Below(8); rows > 0; --rows) {
        std::vector<Variant> values;
        for (const std::string_view field : fields) {
            const bool isPosition = field == "COLUMN" || field == "LINE" || field == "Z" || field == "C";
            values.emplace_back(isPosition ? Variant(static_cast<std::int16_t>(rows)) : AnyValue());
        }
        table->Rows().AddRow(std::move(values));
    }
    control_->SetTable(name, std::move(table));
}

void Host::GiveTables() {
    for (std::size_t which = 0; which < DescribeTables().size(); ++which) {
        GiveTable(which);
    }
}

std::optional<Cell> Host::AnyCell() {
    const GridControl& grid = ControlParts(*control_).Grid();
    const auto columns = grid.Columns(static_cast<ColumnArea>(input_.Below(3)));
    const auto rows = grid.Rows(static_cast<RowArea>(input_.Below(3)));
    if (columns.empty() || rows.empty()) {
        return std::nullopt;
    }
    return Cell{columns[input_.Byte() % columns.size()], rows[input_.Byte() % rows.size()]};
}

void Host::UseGrid() {
    const std::shared_ptr<PlanView> kept = control_;  // as every view keeps it while it reports
    GridControl& grid = ControlParts(*control_).Grid();
    const std::optional<Cell> cell = AnyCell();
    if (!cell) {
        return;
    }
    const auto mode = static_cast<SelectionMode>(input_.Below(3));
    switch (input_.Below(12)) {
        case 0:
            grid.EnterText(*cell, input_.Text());
            break;
        case 1:
            grid.SelectCell(*cell, mode);
            break;
        case 2:
            grid.SelectColumn(cell->column, mode);
            break;
        case 3:
            grid.SelectRow(cell->row, mode);
            break;
        case 4:
            grid.SelectAll();
            break;
        case 5:
            grid.ReportDoubleClick(*cell);
            break;
        case 6:
            grid.ReportSimpleClick(*cell);
            break;
        case 7:
            UseMenu();
            grid.ReportMouseDown(*cell, input_.Below(2) ? MouseButton::Right : MouseButton::Left, ShiftState::None);
            break;
        case 8:
            grid.ReportKeyDown(static_cast<std::int16_t>(input_.Below(8)), input_.Byte());
            break;
        case 9:
            grid.ReportKeyPress(input_.Byte());
            break;
        case 10:
            grid.PressColumnBorder(cell->column, input_.Byte() % 2 != 0);
            grid.DragBorder(input_.Byte());
            grid.ReleaseBorder();  // the only one of the three that raises an event
            break;
        default:
            static_cast<void>(grid.DisplayText(*cell));
            grid.ReportShowHidden(cell->column, HiddenSide::Before);
    }
}

/// Names the entries that the next popups choose.
void Host::UseMenu() {
    constexpr std::array Names{"mnuSwitch",        "mnuZoom",           "mnuChart",          "mnuRandom",
                               "mnuTrace",         "mnuShowTrace",      "mnuGeneral",        "mnuColsHide",
                               "mnuColsShow",      "mnuColsSelectAll",  "mnuRowsHide",       "mnuRowsShow",
                               "mnuRowsSelectAll", "mnuCellCut",        "mnuCellPaste",      "mnuWidthReset",
                               "mnuForecast1",     "mnuDefault",        "mnuLinear",         "mnuChartColumn",
                               "mnuRowAttributes", "mnuChartAttribute", "mnuHeightResetAll", "mnuAverage"};
    platform_.choices = {Names[input_.Byte() % Names.size()]};
}

void Host::UseChart() {
    const std::shared_ptr<PlanView> kept = control_;
    ChartControl& chart = ControlParts(*control_).Chart();
    const int series = input_.Below(6);
    const int category = input_.Below(6);
    switch (input_.Below(4)) {
        case 0:
            if (chart.UserMayChange(series, category)) {
                chart.UserChangedPoint(series, category, input_.Number() / 3.0);
            }
            break;
        case 1:
            chart.UserScrolledTo(input_.Number());
            break;
        case 2: {
            ChartHit hit;
            hit.code = static_cast<ChartHitCode>(input_.Below(9));
            hit.series = series;
            hit.category = category;
            UseMenu();
            if (input_.Byte() % 2 != 0) {
                chart.UserSelected(hit);
            } else {
                chart.UserPressed(MouseButton::Right, ShiftState::None, hit);
            }
            break;
        }
        default:
            chart.UserFocus(input_.Byte() % 2 != 0);
    }
}

void Host::Step(bool mayEnd) {
    const Deeper deeper(depth_);
    switch (const int what = input_.Below(24)) {
        case 0:
        case 1:
            control_->DP_Import_Create();
            break;
        case 2:
        case 3:
        case 4:
        case 5:
        case 6:
            UseGrid();
            break;
        case 7:
            UseChart();
            break;
        case 8:
            GiveTable(input_.Byte() % DescribeTables().size());
            break;
        case 9:
            control_->SetTable(TableNames()[input_.Byte() % DescribeTables().size()], nullptr);
            break;
        case 10:
            control_->View().SwitchChart();
            break;
        case 11:
            platform_.onClipboard.text = input_.Text();
            control_->Editing().Paste();
            break;
        case 12:
            control_->Editing().Fill();
            break;
        case 13:
            control_->Editing().Undo();
            break;
        case 14:
            control_->Editing().Redo();
            break;
        case 15:
            control_->View().HideRows();
            break;
        case 19:
            control_->View().ShowRows();
            break;
        case 16:
            control_->View().ShowSelectedRowsInChart();
            break;
        case 17:
            control_->Editing().SetReadOnly(input_.Below(2) != 0);
            break;
        case 18:
            if (mayEnd && input_.Byte() == 255) {
                control_.reset();
            } else if (input_.Byte() == 255) {
                control_->Terminate();
            }
            break;
        default: {
            const DispatchId method = 1 + (what + input_.Byte()) % 15;
            const std::vector<Variant> arguments(method == 7 ? 1 : 0, "N1");
            control_->Call(method, arguments);
        }
    }
}

void Host::Run() {
    control_ = std::make_shared<PlanView>(platform_.Interfaces());
    control_->AddSink(*this);
    GiveTables();
    control_->DP_Import_Attribute();
    control_->DP_Import_Create();
    for (int step = 0; step < MaxSteps && !input_.Empty() && control_; ++step) {
        Step(true);
    }
    control_.reset();
    if (modPlan::TraceEnabled) {
        modPlan::Trace_Disable(platform_.Interfaces());
    }
}

}  // namespace

/// Whatever a host's tables answer and whatever its event handlers do, no call of the control throws, and none of them
/// harms it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Host(Bytes(data, size)).Run();
    return 0;
}
