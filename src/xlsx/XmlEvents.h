// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "xlsx/ZipParts.h"

namespace planview::xlsx {

/// The attributes of one element while its Start() runs.
class XmlAttributes {
public:
    /// `pairs` alternates names and values and ends with a null pointer.
    explicit XmlAttributes(const char* const* pairs) noexcept : pairs_(pairs) {}

    /// The value of the attribute without a prefix; empty where there is none.
    [[nodiscard]] std::string_view operator[](std::string_view name) const noexcept;
    /// The value of the attribute with this name behind any prefix, such as "r:id".
    [[nodiscard]] std::string_view Prefixed(std::string_view name) const noexcept;

    /// Calls visit(name, value), both with a zero at the end: for what is asked so often that finding lengths would
    /// show.
    template <class Visit>
    void ForEach(Visit&& visit) const {
        for (const char* const* pair = pairs_; *pair; pair += 2) {
            visit(pair[0], pair[1]);
        }
    }

private:
    const char* const* pairs_;
};

/// Told what stands in an XML part. Names come without their prefix: which one a writer chooses means nothing.
class XmlEvents {
public:
    virtual ~XmlEvents() = default;
    virtual void Start(std::string_view name, const XmlAttributes& attributes) = 0;
    virtual void End(std::string_view name) = 0;
    /// A text may come in several pieces.
    virtual void Text(std::string_view piece) = 0;

protected:
    XmlEvents() = default;
    XmlEvents(const XmlEvents&) = default;
    XmlEvents& operator=(const XmlEvents&) = default;
};

/// Reads an XML part from its first byte to its last. Throws BrokenFile where it is not well formed, declares a
/// document type (and so entities), or goes beyond the limits; what the events throw goes through.
void ReadXml(ZipParts& parts, const std::string& name, XmlEvents& events);

}  // namespace planview::xlsx
