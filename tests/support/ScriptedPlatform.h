// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <planview/ObjectRegistry.h>
#include <planview/Platform.h>

namespace planview::test {

/// A platform that does what the test says and remembers what it was asked.
class ScriptedPlatform : public MessageBoxes,
                         public Forms,
                         public Clipboard,
                         public SystemInformation,
                         public Popups,
                         public FileDialogs {
public:
    /// Remembers how far the operations came.
    struct RecordedProgress final : Progress {
        std::vector<std::string> titles;  ///< of each operation that began
        int steps = 0;
        int done = 0;
        int ended = 0;
        std::optional<int> cancelAt;  ///< the user cancels when so many steps are done

        void Begin(std::string_view title, int stepCount) override {
            titles.emplace_back(title);
            steps = stepCount;
            done = 0;
        }
        bool Advance(int stepsDone) override {
            done = stepsDone;
            return !cancelAt || done < *cancelAt;
        }
        void End() noexcept override { ++ended; }
    };

    [[nodiscard]] Platform Interfaces() { return {this, this, this, this, this, this, &objects, &progress}; }

    // What to answer.
    std::optional<MessageAnswer> answer;  ///< none: the default button
    std::optional<MemoryStatus> memory = MemoryStatus{133615616, 262144000, 131072000};
    std::optional<int> platformId = 2;
    std::string logFolder;
    char decimalMark = '.';
    std::function<void(Form&)> whenLoaded;
    std::function<void(Form&)> whileShown;
    std::function<void()> whileAsking;  ///< at the next question only
    /// The names to choose from the popups, one after another; closed without a choice when there is none. A name that
    /// the popup does not offer enabled is dropped, as a user could not choose it.
    std::deque<std::string> choices;

    /// The files to choose in the file dialogs, one after another; cancelled when there is none.
    std::deque<std::string> savePaths;
    std::deque<std::string> openPaths;
    ObjectRegistry objects;

    ClipboardContents onClipboard;

    // What was asked.
    std::vector<MessageBoxRequest> messages;
    std::vector<std::string> formCalls;
    std::vector<PopupMenu> popups;  ///< in the order in which they were opened
    std::vector<PopupPlace> popupPlaces;
    std::vector<FileDialogRequest> fileRequests;
    RecordedProgress progress;

    MessageAnswer Show(const MessageBoxRequest& request) override {
        messages.push_back(request);
        if (const auto action = std::exchange(whileAsking, nullptr)) {
            action();
        }
        return answer.value_or(request.defaultAnswer);
    }
    void Load(Form& form) override {
        Note("load ", form);
        if (whenLoaded) {
            whenLoaded(form);
        }
    }
    void ShowModal(Form& form) override {
        Note("show ", form);
        if (whileShown) {
            whileShown(form);
        }
    }
    void Hide(Form& form) override { Note("hide ", form); }
    void Unload(Form& form) override { Note("unload ", form); }
    ClipboardContents Get() override { return onClipboard; }
    void Set(const ClipboardContents& contents) override { onClipboard = contents; }
    std::optional<MemoryStatus> Memory() const override { return memory; }
    std::optional<int> PlatformId() const override { return platformId; }
    std::string LogFolder() const override { return logFolder; }
    char DecimalMark() const override { return decimalMark; }

    std::string Choose(const PopupMenu& menu, PopupPlace place) override {
        popups.push_back(menu);
        popupPlaces.push_back(place);
        if (choices.empty()) {
            return {};
        }
        const std::string wanted = choices.front();
        choices.pop_front();
        return Offers(menu.entries, wanted) ? wanted : std::string();
    }

    std::string Save(const FileDialogRequest& request) override { return NextPath(request, savePaths); }
    std::string Open(const FileDialogRequest& request) override { return NextPath(request, openPaths); }

private:
    std::string NextPath(const FileDialogRequest& request, std::deque<std::string>& paths) {
        fileRequests.push_back(request);
        if (paths.empty()) {
            return {};
        }
        std::string path = paths.front();
        paths.pop_front();
        return path;
    }
    static bool Offers(const std::vector<PopupEntry>& entries, const std::string& name) {
        return std::any_of(entries.begin(), entries.end(), [&](const PopupEntry& entry) {
            return entry.enabled && (entry.entries.empty() ? entry.name == name : Offers(entry.entries, name));
        });
    }
    void Note(const char* what, const Form& form) { formCalls.push_back(what + std::string(form.Name())); }
};

}  // namespace planview::test
