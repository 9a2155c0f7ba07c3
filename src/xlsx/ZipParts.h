// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "xlsx/ReadLimits.h"

namespace planview::xlsx {

/// The parts of a zipped file, read piece by piece within limits. Everything throws BrokenFile for what a file should
/// not be: too large, damaged, encrypted, too tightly packed.
class ZipParts {
public:
    /// Throws AutomationError where the file cannot be read at all.
    [[nodiscard]] static ZipParts OfFile(const std::filesystem::path& path, const ReadLimits& limits = {});
    [[nodiscard]] static ZipParts OfBytes(std::vector<char> bytes, const ReadLimits& limits = {});

    ZipParts(ZipParts&&) noexcept;
    ZipParts& operator=(ZipParts&&) noexcept;
    ~ZipParts();

    [[nodiscard]] std::vector<std::string> Names() const;
    /// Names are compared without regard to case.
    [[nodiscard]] bool Has(const std::string& name) const;
    /// Hands the part's bytes over in pieces; what `take` throws goes through.
    void Read(const std::string& name, const std::function<void(std::string_view piece)>& take);

    [[nodiscard]] const ReadLimits& Limits() const noexcept;

private:
    struct State;
    explicit ZipParts(std::unique_ptr<State> state);

    std::unique_ptr<State> state_;
};

}  // namespace planview::xlsx
