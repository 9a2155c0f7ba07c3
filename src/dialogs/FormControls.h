// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <planview/Export.h>

namespace planview {

/// The controls of a form as plain state. A window shows them and writes back what the user does.

struct CheckBox {
    std::string Caption;
    std::int16_t Value = 0;  ///< 1 when ticked, else 0
};

struct OptionButton {
    std::string Caption;
    bool Value = false;  ///< chosen; one of its group is
};

struct ListBox {
    std::vector<std::string> Items;
    int ListIndex = -1;  ///< of the chosen item, -1 for none

    [[nodiscard]] std::string Text() const {
        return ListIndex < 0 ? std::string() : Items[static_cast<std::size_t>(ListIndex)];
    }
    /// Chooses the item with this text, whatever the case of its letters; appends it where there is none.
    void Choose(std::string_view text);
};

/// Lets the user choose one of sixteen colours. Answers its position in the "Colors" popup, where black is 0 and white
/// is 15, or nothing when the popup was closed.
using ColorChooser = std::function<std::optional<int>()>;

/// A box that shows and remembers a palette index.
class PLANVIEW_EXPORT ColorBox {
public:
    std::string Caption;

    ColorBox() = default;
    /// Shows `index` until it gets a colour.
    explicit ColorBox(std::int16_t index) noexcept : index_(index) {}

    /// An index outside the palette leaves the box as it is.
    void Set(int index) noexcept;
    [[nodiscard]] std::int16_t Get() const noexcept { return index_; }
    /// Whether it got a colour by Set() or from the user; else what it shows is nobody's choice.
    [[nodiscard]] bool HasColor() const noexcept { return hasColor_; }
    /// Takes over what the user chooses, if anything.
    void Click(const ColorChooser& choose);

private:
    std::int16_t index_ = 0;
    bool hasColor_ = false;
};

}  // namespace planview
