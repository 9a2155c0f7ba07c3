// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <planview/Export.h>

#include "grid/ColorQuestion.h"

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

/// A box that shows and remembers a palette index.
class PLANVIEW_EXPORT ColorBox {
public:
    std::string Caption;

    /// Shows the view's own colour until it gets another.
    explicit ColorBox(ViewColor own) noexcept : own_(own), index_(PaletteIndexOf(own)) {}

    /// The colour of the view that the box may stand for.
    [[nodiscard]] ViewColor Own() const noexcept { return own_; }
    /// Whether it does.
    [[nodiscard]] bool IsOwn() const noexcept { return index_ == PaletteIndexOf(own_); }

    /// An index outside the palette leaves the box as it is.
    void Set(int index) noexcept;
    [[nodiscard]] std::int16_t Get() const noexcept { return index_; }
    /// Whether it got a colour by Set() or from the user; else what it shows is nobody's choice.
    [[nodiscard]] bool HasColor() const noexcept { return hasColor_; }
    /// Takes over what the user chooses, if anything.
    void Click(const ColorChooser& choose);

private:
    ViewColor own_;
    std::int16_t index_;
    bool hasColor_ = false;
};

}  // namespace planview
