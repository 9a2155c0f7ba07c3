// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include <planview/Export.h>
#include <planview/Variant.h>

namespace planview {

/// Names a member of an object by number. 0 is always the default member.
using DispatchId = std::int32_t;

/// The member that is meant where none is named: of a table a field by row and name.
inline constexpr DispatchId DefaultMember = 0;

/// Kinds of failure.
enum class AutomationErrorCode {
    Overflow,             ///< A number does not fit its type.
    SubscriptOutOfRange,  ///< A row or index that the object does not have.
    TypeMismatch,         ///< A value that cannot be converted to the kind that is needed.
    ObjectNotSet,         ///< A member of Nothing was used.
    UnknownMember,        ///< The object has no member of that name or number.
    WrongArguments,       ///< Too many or too few arguments.
    Failed                ///< The object knows the member but cannot do it now.
};

/// What a late-bound call throws. `what()` says what failed and with which name or value.
class PLANVIEW_EXPORT AutomationError : public std::runtime_error {
public:
    /// `text` is for people: what failed, and at which name, row or value.
    AutomationError(AutomationErrorCode code, const std::string& text) : std::runtime_error(text), code_(code) {}
    /// The kind of failure, for callers that go on after some of them.
    [[nodiscard]] AutomationErrorCode Code() const noexcept { return code_; }

private:
    AutomationErrorCode code_;
};

/// An object reached late-bound: by member name or by member number.
///
/// The host implements it for its own tables; the control implements it for itself. Every method may throw
/// AutomationError (any other exception is treated alike). Member names are compared without regard to case. The
/// control calls its tables on its own thread only, at any access and in any order, and keeps them alive while it does.
class PLANVIEW_EXPORT AutomationObject {
public:
    /// What a call hands over, in the order of the member's arguments; valid for the length of the call.
    using Arguments = std::span<const Variant>;

    virtual ~AutomationObject() = default;

    /// The number of the member with this name; throws UnknownMember.
    [[nodiscard]] virtual DispatchId IdOf(std::string_view name) const = 0;
    /// Reads a member, or one of its elements (of a table: row and field).
    [[nodiscard]] virtual Variant Get(DispatchId member, Arguments arguments) = 0;
    /// Assigns to a member, or to one of its elements.
    virtual void Put(DispatchId member, Arguments arguments, const Variant& value) = 0;
    /// Calls a method and answers its result, Empty where it has none.
    virtual Variant Call(DispatchId member, Arguments arguments) = 0;

protected:
    /// @{
    /// Only derived classes construct or copy it.
    AutomationObject() = default;
    AutomationObject(const AutomationObject&) = default;
    AutomationObject& operator=(const AutomationObject&) = default;
    /// @}
};

}  // namespace planview
