// SPDX-License-Identifier: MIT
#include "book/SqlValue.h"

#include <QString>
#include <limits>

namespace planbook {

using planview::Variant;

std::optional<QVariant> ToSql(const Variant& value) {
    switch (value.GetKind()) {
        case Variant::Kind::Empty:
            return QVariant();
        case Variant::Kind::Boolean:
        case Variant::Kind::Int16:
        case Variant::Kind::Int32:
            return value.AsInt32();
        case Variant::Kind::Double:
            return value.AsDouble();
        case Variant::Kind::Text:
            return QString::fromStdString(*value.TextIf());
        case Variant::Kind::Nothing:
        case Variant::Kind::Object:
            break;
    }
    return std::nullopt;
}

std::optional<Variant> FromSql(const QVariant& value) {
    if (value.isNull()) {
        return Variant();
    }
    switch (value.typeId()) {
        case QMetaType::Int:
        case QMetaType::LongLong: {
            const qlonglong number = value.toLongLong();
            const bool fits = number >= std::numeric_limits<std::int32_t>::min() &&
                              number <= std::numeric_limits<std::int32_t>::max();
            return fits ? Variant(static_cast<std::int32_t>(number)) : Variant(static_cast<double>(number));
        }
        case QMetaType::Double:
            return value.toDouble();
        case QMetaType::QString:
            return value.toString().toStdString();
        default:
            return std::nullopt;
    }
}

}  // namespace planbook
