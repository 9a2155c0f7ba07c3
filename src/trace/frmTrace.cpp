// SPDX-License-Identifier: MIT
#include "trace/frmTrace.h"

#include <utility>

#include "trace/ErrorTrap.h"
#include "trace/modPlan.h"

namespace planview {

using modPlan::TraceWrite;

namespace {

constexpr std::string_view TraceLabel = "TRACE WINDOW";
// What lies round the list inside the form, in twips.
constexpr int WidthBeside = 180;
constexpr int HeightBeside = 720;

std::shared_ptr<frmTrace> instance;

}  // namespace

frmTrace::frmTrace()
    : mnuTrac{{{AlwaysOnTop, "Window always on top", true},
               {19, "-"},
               {DeleteAllItems, "Delete all items"},
               {CheckMemory, "Memory check"},
               {79, "-"},
               {InsertBookmark, "Insert bookmark"},
               {89, "-"},
               {Exit, "Exit"}}} {
    TraceView.AddColumn({"CONTROL", "Control", 1500});
    TraceView.AddColumn({"MESSAGE", "Message", 1500});
    TraceView.AddColumn({"METHODE", "Methode/Event", 2100});
    TraceView.AddColumn({"PARAMETER", "Parameter", 4500});
    TraceView.AddColumn({"GUID", "GUID", 2100});
}

frmTrace& frmTrace::Instance() {
    if (!instance) {
        instance.reset(new frmTrace);
    }
    return *instance;
}

std::shared_ptr<frmTrace> frmTrace::Share() {
    static_cast<void>(Instance());
    return instance;
}

bool frmTrace::Exists() noexcept {
    return instance != nullptr;
}

void frmTrace::End() noexcept {
    instance.reset();
}

std::shared_ptr<const Desktop> frmTrace::SetPlatform(std::shared_ptr<const Desktop> platform) noexcept {
    return std::exchange(platform_, std::move(platform));
}

void frmTrace::mnuTrac_Click(int index) {
    const std::shared_ptr<const Desktop> platform = platform_;
    ResumeNext([&] {
        switch (index) {
            case AlwaysOnTop:
                ToggleOnTop();
                break;
            case DeleteAllItems:
                if (platform) {
                    DeleteAll(*platform);
                }
                break;
            case CheckMemory:
                if (platform) {
                    modPlan::MemoryCheck(platform->system);
                }
                break;
            case InsertBookmark:
                TraceWrite(TraceLabel, "# BOOKMARK #", "InsertBookmark", "{########################################}");
                break;
            case Exit:
                if (platform) {
                    platform->forms.Hide(*this);
                }
                break;
            default:
                break;
        }
    });
}

void frmTrace::ToggleOnTop() {
    bool& checked = mnuTrac[0].Checked;
    checked = !checked;
    TraceWrite(TraceLabel, "", "Always on top", checked ? "{Enabled}" : "{Disabled}");
}

void frmTrace::DeleteAll(const Desktop& platform) {
    const std::shared_ptr<frmTrace> asked = Share();
    modPlan::TraceSave(platform);
    // While the question stood, the trace may have been switched off and the form with it, and on again.
    if (instance == asked) {
        asked->TraceView.Clear();
        TraceWrite(TraceLabel, "", "All items deleted", "{}");
    }
}

void frmTrace::Form_Resize(int width, int height) noexcept {
    if (width - WidthBeside >= 0) {
        TraceViewPlace.Width = width - WidthBeside;
    }
    if (height - HeightBeside > 0) {
        TraceViewPlace.Height = height - HeightBeside;
    }
}

}  // namespace planview
