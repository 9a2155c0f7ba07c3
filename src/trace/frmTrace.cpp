// SPDX-License-Identifier: MIT
#include "trace/frmTrace.h"

#include <mutex>
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

std::mutex instanceMutex;
std::shared_ptr<frmTrace> instance;  // guarded by it

}  // namespace

frmTrace::frmTrace()
    : TraceView({{"CONTROL", "Control", 1500},
                 {"MESSAGE", "Message", 1500},
                 {"METHODE", "Methode/Event", 2100},
                 {"PARAMETER", "Parameter", 4500},
                 {"GUID", "GUID", 2100}}),
      mnuTrac{{{AlwaysOnTop, "Window always on top", true},
               {19, "-"},
               {DeleteAllItems, "Delete all items"},
               {CheckMemory, "Memory check"},
               {79, "-"},
               {InsertBookmark, "Insert bookmark"},
               {89, "-"},
               {Exit, "Exit"}}} {}

std::shared_ptr<frmTrace> frmTrace::Share() {
    const std::lock_guard lock(instanceMutex);
    if (!instance) {
        instance.reset(new frmTrace);
    }
    return instance;
}

std::shared_ptr<frmTrace> frmTrace::Find() noexcept {
    const std::lock_guard lock(instanceMutex);
    return instance;
}

// Switch and instance change in one step: of two threads that switch, each finds what the other has left.

std::shared_ptr<frmTrace> frmTrace::SwitchOn() {
    std::shared_ptr<frmTrace> before;  // ends, where it does, when the lock is open
    const std::lock_guard lock(instanceMutex);
    if (modPlan::TraceEnabled.exchange(true)) {
        return nullptr;
    }
    if (!instance || instance->isOff_) {
        before = std::exchange(instance, std::shared_ptr<frmTrace>(new frmTrace));
    }
    return instance;
}

std::shared_ptr<frmTrace> frmTrace::SwitchOff() {
    const std::lock_guard lock(instanceMutex);
    if (!modPlan::TraceEnabled.exchange(false)) {
        return nullptr;
    }
    if (!instance) {
        instance.reset(new frmTrace);
    }
    instance->isOff_ = true;
    return instance;
}

void frmTrace::End(const frmTrace& form) noexcept {
    std::shared_ptr<frmTrace> ended;  // when the lock is open
    const std::lock_guard lock(instanceMutex);
    if (instance.get() == &form) {
        ended = std::move(instance);
    }
}

std::shared_ptr<const Desktop> frmTrace::SetPlatform(std::shared_ptr<const Desktop> platform) noexcept {
    return std::exchange(platform_, std::move(platform));
}

std::optional<MemoryStatus> frmTrace::Memory() const {
    std::optional<MemoryStatus> memory;
    ResumeNext([&] { memory = platform_ ? platform_->system.Memory() : std::nullopt; });
    return memory;
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
    const std::shared_ptr<frmTrace> self = shared_from_this();
    modPlan::TraceSave(platform, TraceView);
    // While the question stood, the trace may have been switched off and the form with it, and on again.
    if (Find() == self) {
        TraceView.Clear();
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
