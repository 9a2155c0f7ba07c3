// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include <planview/Export.h>
#include <planview/Platform.h>

namespace planview {

/// An object factory that makes what the host has registered. Identifiers are compared without regard to case. Used on
/// one thread; an object that was made may outlive it.
class PLANVIEW_EXPORT ObjectRegistry final : public ObjectFactory {
public:
    /// Makes one object. What it throws goes to the caller of Create().
    using Maker = std::function<ObjectRef()>;

    ObjectRegistry();
    ~ObjectRegistry() override;
    ObjectRegistry(const ObjectRegistry&) = delete;
    ObjectRegistry& operator=(const ObjectRegistry&) = delete;

    /// Takes the place of what was registered under this identifier. `make` is called for each Create().
    void Register(std::string identifier, Maker make);
    /// Nothing for an identifier that is not registered.
    void Unregister(std::string_view identifier) noexcept;

    [[nodiscard]] ObjectRef Create(std::string_view programmaticIdentifier) override;

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace planview
