// SPDX-License-Identifier: MIT
#include "qt/VariantConversion.h"

#include <limits>

#include <planview/qt/PlanViewWidget.h>

namespace planview {

namespace {

template <class Number>
bool fits(qlonglong value) {
    return value >= std::numeric_limits<Number>::min() && value <= std::numeric_limits<Number>::max();
}

Variant wholeNumber(qlonglong value) {
    if (fits<std::int16_t>(value)) {
        return static_cast<std::int16_t>(value);
    }
    return fits<std::int32_t>(value) ? Variant(static_cast<std::int32_t>(value)) : Variant(static_cast<double>(value));
}

}  // namespace

QVariant toQVariant(const Variant& value) {
    switch (value.GetKind()) {
        case Variant::Kind::Empty:
            return {};
        case Variant::Kind::Nothing:
        case Variant::Kind::Object:
            return QVariant::fromValue(value.AsObject());
        case Variant::Kind::Boolean:
            return value.AsBoolean();
        case Variant::Kind::Int16:
            return QVariant::fromValue<short>(value.AsInt16());
        case Variant::Kind::Int32:
            return value.AsInt32();
        case Variant::Kind::Double:
            return value.AsDouble();
        case Variant::Kind::Text:
            return QString::fromStdString(value.AsText());
    }
    return {};
}

Variant fromQVariant(const QVariant& value) {
    const QMetaType type = value.metaType();
    if (type == QMetaType::fromType<ObjectRef>()) {
        return value.value<ObjectRef>();
    }
    switch (type.id()) {
        case QMetaType::Nullptr:
            return Variant::Nothing();
        case QMetaType::Bool:
            return value.toBool();
        case QMetaType::Char:
        case QMetaType::SChar:
        case QMetaType::UChar:
        case QMetaType::Short:
        case QMetaType::UShort:
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::Long:
        case QMetaType::LongLong:
            return wholeNumber(value.toLongLong());
        case QMetaType::ULong:
        case QMetaType::ULongLong: {
            const qulonglong number = value.toULongLong();
            return number <= static_cast<qulonglong>(std::numeric_limits<qlonglong>::max())
                       ? wholeNumber(static_cast<qlonglong>(number))
                       : Variant(static_cast<double>(number));
        }
        case QMetaType::Float:
        case QMetaType::Double:
            return value.toDouble();
        default:
            return value.isValid() && value.canConvert<QString>() ? Variant(value.toString().toStdString()) : Variant();
    }
}

}  // namespace planview
