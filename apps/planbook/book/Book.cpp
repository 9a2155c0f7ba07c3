// SPDX-License-Identifier: MIT
#include "book/Book.h"

#include <string>
#include <utility>
#include <vector>

namespace planbook {

Book::Book() {
    for (const TableDescription& description : BookSchema()) {
        std::vector<std::string> fields;
        fields.reserve(description.fields.size());
        for (const FieldDescription& field : description.fields) {
            fields.emplace_back(field.name);
        }
        tables_[static_cast<std::size_t>(description.table)] =
            std::make_shared<planview::MemoryTable>(std::move(fields));
    }
}

planview::MemoryTable& Book::operator[](BookTable table) const noexcept {
    return *tables_[static_cast<std::size_t>(table)];
}

std::shared_ptr<planview::MemoryTable> Book::Share(BookTable table) const noexcept {
    return tables_[static_cast<std::size_t>(table)];
}

}  // namespace planbook
