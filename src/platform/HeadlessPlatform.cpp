// SPDX-License-Identifier: MIT
#include "platform/HeadlessPlatform.h"

#include <array>
#include <cstdio>

#include <planview/ObjectRegistry.h>

#include "platform/System.h"

namespace planview {

namespace {

/// Answers with the default button, as a user does who presses Return.
class DefaultAnswers final : public MessageBoxes {
public:
    MessageAnswer Show(const MessageBoxRequest& request) override { return request.defaultAnswer; }
};

/// Without a screen a form is neither shown nor waited for.
class NoForms final : public Forms {
public:
    void Load(Form&) override {}
    void ShowModal(Form&) override {}
    void Hide(Form&) override {}
    void Unload(Form&) override {}
};

/// A clipboard of its own, which no other program sees.
class OwnClipboard final : public Clipboard {
public:
    ClipboardContents Get() override { return contents_; }
    void Set(const ClipboardContents& contents) override { contents_ = contents; }

private:
    ClipboardContents contents_;
};

class OwnSystem final : public SystemInformation {
public:
    std::optional<MemoryStatus> Memory() const override { return SystemMemory(); }
    std::optional<int> PlatformId() const override { return SystemPlatformId(); }
    std::string LogFolder() const override { return SystemLogFolder(); }
    /// That of the process: "." until the host has called setlocale(). Asked by printing, which any thread may do.
    char DecimalMark() const override {
        std::array<char, 8> half{};
        std::snprintf(half.data(), half.size(), "%.1f", 0.5);
        return half[1] == ',' ? ',' : '.';
    }
};

/// Without a screen every popup is closed at once.
class NoPopups final : public Popups {
public:
    std::string Choose(const PopupMenu&, PopupPlace) override { return {}; }
};

/// Without a screen there is nobody to choose a file.
class NoFileDialogs final : public FileDialogs {
public:
    std::string Save(const FileDialogRequest&) override { return {}; }
    std::string Open(const FileDialogRequest&) override { return {}; }
};

class NoProgress final : public Progress {
public:
    void Begin(std::string_view, int) override {}
    bool Advance(int) override { return true; }
    void End() noexcept override {}
};

}  // namespace

struct HeadlessPlatform::State {
    DefaultAnswers messageBoxes;
    NoForms forms;
    OwnClipboard clipboard;
    OwnSystem system;
    NoPopups popups;
    NoFileDialogs fileDialogs;
    ObjectRegistry objects;
    NoProgress progress;
};

HeadlessPlatform::HeadlessPlatform() : state_(std::make_unique<State>()) {}

HeadlessPlatform::~HeadlessPlatform() = default;

Platform HeadlessPlatform::Interfaces() noexcept {
    return {.messageBoxes = &state_->messageBoxes,
            .forms = &state_->forms,
            .clipboard = &state_->clipboard,
            .system = &state_->system,
            .popups = &state_->popups,
            .fileDialogs = &state_->fileDialogs,
            .objects = &state_->objects,
            .progress = &state_->progress};
}

}  // namespace planview
