// SPDX-License-Identifier: MIT
#include <QByteArray>
#include <QDate>
#include <QPoint>
#include <QtTest>

#include <planview/MemoryTable.h>
#include <planview/qt/PlanViewWidget.h>

#include "qt/VariantConversion.h"

namespace planview {

class VariantConversionTest : public QObject {
    Q_OBJECT

private slots:
    void thereAndBack() {
        const ObjectRef table = std::make_shared<MemoryTable>(std::vector<std::string>{"V"});
        const Variant values[] = {
            Variant(), Variant::Nothing(), true, std::int16_t{-7}, std::int32_t{70000}, 2.5, "text \xc3\xa4", "",
            table};
        for (const Variant& value : values) {
            const Variant back = fromQVariant(toQVariant(value));
            QVERIFY2(back == value, toQVariant(value).typeName());
        }
        QCOMPARE(toQVariant(std::int16_t{3}).metaType(), QMetaType::fromType<short>());
        QVERIFY(!toQVariant(Variant()).isValid());
    }

    void whatHostsHandOver_data() {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("text");
        const auto add = [](const char* name, const QVariant& value, Variant::Kind kind, const char* text) {
            QTest::newRow(name) << value << static_cast<int>(kind) << text;
        };
        add("small int", 5, Variant::Kind::Int16, "5");
        add("int", 40000, Variant::Kind::Int32, "40000");
        add("smallest 16-bit number", -32768, Variant::Kind::Int16, "-32768");
        add("beyond 32 bits", qlonglong{5000000000}, Variant::Kind::Double, "5000000000");
        add("unsigned beyond 63 bits", qulonglong{10000000000000000000U}, Variant::Kind::Double, "1E+19");
        add("float", 0.5F, Variant::Kind::Double, "0.5");
        add("bytes", QByteArray("abc"), Variant::Kind::Text, "abc");
        add("date", QDate(2026, 11, 21), Variant::Kind::Text, "2026-11-21");
        add("what has no text", QPoint(1, 2), Variant::Kind::Empty, "");
    }
    void whatHostsHandOver() {
        QFETCH(QVariant, value);
        QFETCH(int, kind);
        QFETCH(QString, text);
        const Variant converted = fromQVariant(value);
        QCOMPARE(static_cast<int>(converted.GetKind()), kind);
        QCOMPARE(QString::fromStdString(converted.AsText()), text);
    }
};

}  // namespace planview

QTEST_GUILESS_MAIN(planview::VariantConversionTest)
#include "VariantConversionTest.moc"
