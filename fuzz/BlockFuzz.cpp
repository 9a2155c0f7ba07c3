// SPDX-License-Identifier: MIT
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "clipboard/BlockText.h"
#include "clipboard/HtmlBlock.h"

/// A block that was read can be written and read back unchanged.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const planview::TextBlock block = planview::ParseBlock({reinterpret_cast<const char*>(data), size});
    if (planview::ParseBlock(planview::FormatBlock(block)) != block) {
        std::abort();
    }
    static_cast<void>(planview::FormatHtmlBlock(block));
    static_cast<void>(planview::BestBlock({}, {reinterpret_cast<const char*>(data), size}));
    return 0;
}
