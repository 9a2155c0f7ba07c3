// SPDX-License-Identifier: MIT
#include "trace/modPlan.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <limits>
#include <memory>
#include <mutex>
#include <optional>
#include <ostream>
#include <thread>
#include <utility>
#include <vector>

#include <planview/SaveBeside.h>
#include <planview/Trace.h>
#include <planview/Version.h>

#include "automation/CheckedInt.h"
#include "automation/Utf8.h"
#include "trace/ErrorTrap.h"
#include "trace/TraceText.h"
#include "trace/frmTrace.h"

namespace planview {

bool TraceIsOn() noexcept {
    return modPlan::TraceEnabled;
}

void WriteTraceLog(std::ostream& out) {
    modPlan::WriteTraceLines(out);
}

namespace modPlan {

struct TraceStreamState;
void AddStream(TraceStreamState& stream);
void RemoveStream(TraceStreamState& stream) noexcept;
int ErrorOf(const TraceStreamState& stream);

namespace {

constexpr const char* LogFileName = "MORVIDA.LOG";

/// A field of a log line: the column it starts in (1-based) and the longest text behind which the next field still
/// stands on the same line.
struct LogField {
    std::size_t column;
    std::size_t longest;
};

constexpr std::array<LogField, 4> LogFields{{{1, 14}, {15, 19}, {35, 29}, {65, std::string::npos}}};

std::size_t CharacterCount(std::string_view utf8) {
    return static_cast<std::size_t>(std::count_if(
        utf8.begin(), utf8.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80; }));
}

void WriteLogLine(std::ostream& out, const std::array<std::string_view, 4>& fields) {
    std::size_t column = 1;
    bool fits = true;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (!fits) {
            out << "\r\n";
            column = 1;
        }
        out << std::string(LogFields[i].column - column, ' ') << fields[i];
        const std::size_t length = CharacterCount(fields[i]);
        column = LogFields[i].column + length;
        fits = length <= LogFields[i].longest;
    }
    out << "\r\n";
}

std::string KilobytesText(std::int64_t bytes) {
    constexpr double BytesPerKilobyte = 1024;
    const std::int64_t capped = std::clamp<std::int64_t>(bytes, 0, std::numeric_limits<std::int32_t>::max());
    return NumberText(static_cast<double>(capped) / BytesPerKilobyte, TraceDecimalMark) + " KBytes}";
}

std::string_view PlatformText(int platformId) {
    switch (platformId) {
        case 0:
            return "{OS platform: Windows 3.1 [Win32s]}";
        case 1:
            return "{OS platform: Windows 95 [Win32]}";
        case 2:
            return "{OS platform: Windows Nt [Win32]}";
        default:
            return "{OS platform: !!! Unknown !!!}";
    }
}

/// A window of the trace: of which list, who made it, and the one thread that may end it.
struct TraceWindow {
    std::shared_ptr<frmTrace> form;
    Forms* forms;
    std::thread::id thread = std::this_thread::get_id();

    [[nodiscard]] bool IsOfThisThread() const noexcept { return thread == std::this_thread::get_id(); }
};

std::mutex windowsMutex;
std::vector<TraceWindow> windows;  // guarded by it

/// Ends those windows that `wanted` says. Each is forgotten first: ending it may lead back here.
template <class Wanted>
void EndWindows(const Wanted& wanted) noexcept {
    const auto take = [&]() -> std::optional<TraceWindow> {
        const std::lock_guard lock(windowsMutex);
        const auto found = std::find_if(windows.begin(), windows.end(), wanted);
        if (found == windows.end()) {
            return std::nullopt;
        }
        TraceWindow window = std::move(*found);
        windows.erase(found);
        return window;
    };
    while (const std::optional<TraceWindow> window = take()) {
        ResumeNext([&] { window->forms->Unload(*window->form); });
    }
}

void NoteWindow(const std::shared_ptr<frmTrace>& form, Forms& forms) {
    // Lists that another thread has ended left theirs to this one.
    EndWindows([](const TraceWindow& window) { return window.IsOfThisThread() && window.form->TraceView.HasEnded(); });
    const std::lock_guard lock(windowsMutex);
    const auto isNoted = [&](const TraceWindow& window) { return window.form == form && window.forms == &forms; };
    if (std::none_of(windows.begin(), windows.end(), isNoted)) {
        windows.push_back({form, &forms});
    }
}

void WriteList(std::ostream& out, const ListView& list) {
    for (const ListItem& item : list.AllItems()) {
        WriteLogLine(out, {item.text, item.subItems[0], item.subItems[1], item.subItems[2]});
    }
}

/// Counts up by one; a switching on that comes between begins the count anew.
std::int32_t NextNumber() {
    std::int32_t number = TraceCounter;
    while (!TraceCounter.compare_exchange_weak(number, CheckedAdd(number, 1))) {
    }
    return number + 1;
}

/// The text as the list and the log can show it; nearly always it is so already.
class ShownText {
public:
    explicit ShownText(std::string_view text) : text_(text) {
        if (!IsValidUtf8(text)) {
            valid_ = ToValidUtf8(text);
            text_ = valid_;
        }
    }
    ShownText(const ShownText&) = delete;
    ShownText& operator=(const ShownText&) = delete;
    operator std::string_view() const noexcept { return text_; }

private:
    std::string valid_;
    std::string_view text_;
};

}  // namespace

struct TraceStreamState {
    std::ostream& out;
    int error = 0;

    void Write(const std::array<std::string_view, 4>& fields) noexcept {
        if (error != 0) {
            return;
        }
        errno = 0;
        ResumeNext([&] { WriteLogLine(out, fields); });
        if (!out) {
            error = errno != 0 ? errno : EIO;
        }
    }
};

namespace {

std::mutex streamsMutex;
std::vector<TraceStreamState*> streams;  // guarded by it
std::atomic<bool> anyStreams = false;

void WriteToStreams(const std::array<std::string_view, 4>& fields) {
    const std::lock_guard lock(streamsMutex);
    for (TraceStreamState* stream : streams) {
        stream->Write(fields);
    }
}

}  // namespace

void AddStream(TraceStreamState& stream) {
    const std::lock_guard lock(streamsMutex);
    streams.push_back(&stream);
    anyStreams = true;
}

void RemoveStream(TraceStreamState& stream) noexcept {
    const std::lock_guard lock(streamsMutex);
    std::erase(streams, &stream);
    anyStreams = !streams.empty();
}

int ErrorOf(const TraceStreamState& stream) {
    const std::lock_guard lock(streamsMutex);
    return stream.error;
}

void TraceWrite(std::string_view control, std::string_view message, std::string_view method,
                std::string_view parameter) noexcept {
    if (!TraceEnabled) {
        return;
    }
    ResumeNext([&] {
        const std::shared_ptr<frmTrace> form = frmTrace::Share();
        const ShownText shownMessage(message);
        const ShownText shownParameter(parameter);
        form->TraceView.Add(MaxTraceEntries, [&](ListItem& item) {
            item.key = std::string_view(TraceText("TRACE{", NextNumber(), "}"));
            item.text = control;
            item.subItems[0] = std::string_view(shownMessage);
            item.subItems[1] = method;
            item.subItems[2] = std::string_view(shownParameter);
            item.subItems[3] = item.key;
            item.time = std::chrono::system_clock::now();
        });
        if (anyStreams) {
            WriteToStreams({control, shownMessage, method, shownParameter});
        }
    });
}

void Trace_Enable(const Desktop& platform) {
    const std::shared_ptr<frmTrace> form = frmTrace::SwitchOn();
    if (!form) {
        return;
    }
    TraceCounter = 0;
    ResumeNext([&] { NoteWindow(form, platform.forms); }, [&] { platform.forms.Load(*form); },
               [&] { form->TraceView.Clear(); });
    TraceWrite("USERCONTROL", "", "Trace_Enable", "{}");
    TraceWrite("USERCONTROL", "", "Morvida",
               TraceText("{version: ", VersionMajor, ".", VersionMinor, ".", VersionRevision, "}"));
    MemoryCheck(platform.system);
    OsCheck(platform.system);
}

void Trace_Disable(const Desktop& platform) {
    const std::shared_ptr<frmTrace> ended = frmTrace::SwitchOff();
    if (!ended) {
        return;
    }
    TraceWrite("USERCONTROL", "", "Trace_Disable", "{}");
    TraceSave(platform, ended->TraceView);
    ended->TraceView.Clear();
    EndWindows([&](const TraceWindow& window) { return window.form == ended && window.IsOfThisThread(); });
    ended->TraceView.End();
    frmTrace::End(*ended);
}

void Trace_Leave(const Desktop& platform) noexcept {
    EndWindows([&](const TraceWindow& window) { return window.forms == &platform.forms; });
}

void Trace_Show(const Desktop& platform) {
    if (!TraceEnabled) {
        return;
    }
    // The window may end, and with it the trace, while it is shown.
    const std::shared_ptr<frmTrace> shown = frmTrace::Share();
    // The window's menu works with the desktop of the control that shows it.
    auto before = shown->SetPlatform(std::make_shared<const Desktop>(platform));
    ResumeNext([&] { NoteWindow(shown, platform.forms); }, [&] { platform.forms.ShowModal(*shown); });
    shown->SetPlatform(std::move(before));
}

void TraceSave(const Desktop& platform, const ListView& list) {
    MessageAnswer answer = MessageAnswer::No;
    ResumeNext([&] {
        answer = platform.messageBoxes.Show(
            {"Save trace to file ?", "Trace", MessageButtons::YesNo, MessageIcon::Exclamation, MessageAnswer::No});
    });
    if (answer != MessageAnswer::Yes) {
        return;
    }
    ResumeNext([&] {
        const std::string name = platform.system.LogFolder();
        const std::filesystem::path folder(std::u8string(name.begin(), name.end()));
        std::filesystem::create_directories(folder);
        SaveStream(folder / LogFileName, [&](std::ostream& file) { WriteList(file, list); });
    });
}

void WriteTraceLines(std::ostream& out) {
    if (const std::shared_ptr<frmTrace> form = frmTrace::Find()) {
        WriteList(out, form->TraceView);
    }
}

void MemoryCheck(const SystemInformation& system) {
    if (!TraceEnabled) {
        return;
    }
    ResumeNext([&] {
        const std::optional<MemoryStatus> memory = system.Memory();
        if (!memory) {
            return;
        }
        const auto write = [](std::string_view label, std::int64_t bytes) {
            TraceWrite("USERCONTROL", "MEMORY CHECK", "", TraceText("{", label, ": ", KilobytesText(bytes)));
        };
        write("total physical memory", memory->totalPhysical);
        write("free memory..........", memory->availablePageFile);
        write("used memory..........", memory->totalPageFile - memory->availablePageFile);
    });
}

void OsCheck(const SystemInformation& system) {
    if (!TraceEnabled) {
        return;
    }
    ResumeNext([&] {
        if (const std::optional<int> platformId = system.PlatformId()) {
            TraceWrite("USERCONTROL", "OS CHECK", "", PlatformText(*platformId));
        }
    });
}

std::string ReplacePoint(std::string text) {
    const bool traced = TraceEnabled;
    const std::string before = traced ? text : std::string();
    std::replace(text.begin(), text.end(), '.', ',');
    if (traced) {
        TraceWrite("GRIDCTL", "", "ReplacePoint", TraceText("{before: ", before, " - after: ", text, "}"));
    }
    return text;
}

}  // namespace modPlan

struct TraceStream::State : modPlan::TraceStreamState {};

TraceStream::TraceStream(std::ostream& out) : state_(new State{{out}}) {
    modPlan::AddStream(*state_);
}

TraceStream::~TraceStream() {
    modPlan::RemoveStream(*state_);
}

int TraceStream::Error() const {
    return modPlan::ErrorOf(*state_);
}

}  // namespace planview
