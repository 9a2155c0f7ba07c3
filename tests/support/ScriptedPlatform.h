#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <planview/Platform.h>

namespace planview::test {

/// A platform that does what the test says and remembers what it was asked.
class ScriptedPlatform : public MessageBoxes, public Forms, public Clipboard, public SystemInformation {
public:
    [[nodiscard]] Platform Interfaces() { return {*this, *this, *this, *this}; }

    // What to answer.
    std::optional<MessageAnswer> answer;  ///< none: the default button
    std::optional<MemoryStatus> memory = MemoryStatus{133615616, 262144000, 131072000};
    std::optional<int> platformId = 2;
    std::string logFolder;
    char decimalMark = '.';
    std::function<void(Form&)> whenLoaded;
    std::function<void(Form&)> whileShown;
    std::function<void()> whileAsking;  ///< at the next question only

    ClipboardContents onClipboard;

    // What was asked.
    std::vector<MessageBoxRequest> messages;
    std::vector<std::string> formCalls;

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

private:
    void Note(const char* what, const Form& form) { formCalls.push_back(what + std::string(form.Name())); }
};

}  // namespace planview::test
