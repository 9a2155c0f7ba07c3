// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace planview::test {

/// What a run does, line by line under the names of its steps, to be compared with the file that a run was kept in.
///
/// With the environment variable PLANVIEW_KEEP set, ExpectKept() replaces the file instead of comparing with it; what
/// changed is then seen in the difference to the version under revision control.
class Transcript {
public:
    void Begin(std::string_view step);
    /// A text of several lines becomes one, with "\n" in it.
    void Add(std::string_view line);
    /// Fails the test for each step that is not as it was kept, with the lines that came (+) and went (-).
    void ExpectKept(const std::filesystem::path& file) const;

private:
    struct Section {
        std::string step;
        std::vector<std::string> lines;
    };
    [[nodiscard]] static std::vector<Section> Read(const std::filesystem::path& file);
    static void Write(const std::filesystem::path& file, const std::vector<Section>& sections);
    static std::string Difference(const std::vector<std::string>& kept, const std::vector<std::string>& found);

    std::vector<Section> sections_;
};

}  // namespace planview::test
