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

inline constexpr DispatchId DefaultMember = 0;

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
    AutomationError(AutomationErrorCode code, const std::string& text) : std::runtime_error(text), code_(code) {}
    [[nodiscard]] AutomationErrorCode Code() const noexcept { return code_; }

private:
    AutomationErrorCode code_;
};

/// An object reached late-bound: by member name or by member number.
///
/// The host implements it for its own tables; the control implements it for itself. Every method may throw
/// AutomationError (any other exception is treated alike). Member names are compared without regard to case.
class PLANVIEW_EXPORT AutomationObject {
public:
    using Arguments = std::span<const Variant>;

    virtual ~AutomationObject() = default;

    /// The number of the member with this name; throws UnknownMember.
    [[nodiscard]] virtual DispatchId IdOf(std::string_view name) const = 0;
    [[nodiscard]] virtual Variant Get(DispatchId member, Arguments arguments) = 0;
    virtual void Put(DispatchId member, Arguments arguments, const Variant& value) = 0;
    virtual Variant Call(DispatchId member, Arguments arguments) = 0;

protected:
    AutomationObject() = default;
    AutomationObject(const AutomationObject&) = default;
    AutomationObject& operator=(const AutomationObject&) = default;
};

}  // namespace planview
