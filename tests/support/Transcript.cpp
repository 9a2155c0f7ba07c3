// SPDX-License-Identifier: MIT
#include "support/Transcript.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>

#include <gtest/gtest.h>

namespace planview::test {

namespace {

constexpr std::string_view StepMark = "== ";
constexpr const char* KeepVariable = "PLANVIEW_KEEP";

std::string OnOneLine(std::string_view text) {
    std::string line;
    for (const char c : text) {
        line += c == '\n' ? "\\n" : c == '\r' ? "\\r" : c == '\t' ? "\\t" : std::string(1, c);
    }
    return line;
}

}  // namespace

void Transcript::Begin(std::string_view step) {
    sections_.push_back({std::string(step), {}});
}

void Transcript::Add(std::string_view line) {
    sections_.back().lines.push_back(OnOneLine(line));
}

std::vector<Transcript::Section> Transcript::Read(const std::filesystem::path& file) {
    std::vector<Section> sections;
    std::ifstream in(file);
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with(StepMark)) {
            sections.push_back({line.substr(StepMark.size()), {}});
        } else if (!sections.empty()) {
            sections.back().lines.push_back(line);
        }
    }
    return sections;
}

void Transcript::Write(const std::filesystem::path& file, const std::vector<Section>& sections) {
    std::ofstream out(file, std::ios::trunc);
    for (const Section& section : sections) {
        out << StepMark << section.step << "\n";
        for (const std::string& line : section.lines) {
            out << line << "\n";
        }
    }
    EXPECT_TRUE(out.flush()) << "cannot write " << file;
}

std::string Transcript::Difference(const std::vector<std::string>& kept, const std::vector<std::string>& found) {
    const std::size_t rows = kept.size() + 1;
    const std::size_t columns = found.size() + 1;
    // How many lines are the same from here to both ends.
    std::vector<std::size_t> same(rows * columns);
    for (std::size_t i = kept.size(); i-- > 0;) {
        for (std::size_t j = found.size(); j-- > 0;) {
            same[i * columns + j] = kept[i] == found[j]
                                        ? same[(i + 1) * columns + j + 1] + 1
                                        : std::max(same[(i + 1) * columns + j], same[i * columns + j + 1]);
        }
    }
    std::string text;
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < kept.size() || j < found.size()) {
        if (i < kept.size() && j < found.size() && kept[i] == found[j]) {
            ++i;
            ++j;
        } else if (j == found.size() || (i < kept.size() && same[(i + 1) * columns + j] >= same[i * columns + j + 1])) {
            text += "  - " + kept[i++] + "\n";
        } else {
            text += "  + " + found[j++] + "\n";
        }
    }
    return text;
}

void Transcript::ExpectKept(const std::filesystem::path& file) const {
    if (std::getenv(KeepVariable)) {
        Write(file, sections_);
        return;
    }
    const std::vector<Section> kept = Read(file);
    ASSERT_FALSE(kept.empty()) << "cannot read " << file;
    for (std::size_t i = 0; i < std::max(kept.size(), sections_.size()); ++i) {
        const Section none;
        const Section& before = i < kept.size() ? kept[i] : none;
        const Section& now = i < sections_.size() ? sections_[i] : none;
        EXPECT_EQ(before.step, now.step);
        if (before.lines != now.lines) {
            ADD_FAILURE() << "\"" << now.step << "\" is not as kept in " << file.filename() << ":\n"
                          << Difference(before.lines, now.lines);
        }
    }
    if (testing::Test::HasFailure()) {
        std::puts("If all of this is meant, keep it: PLANVIEW_KEEP=1 ctest --preset dev -R Golden");
    }
}

}  // namespace planview::test
