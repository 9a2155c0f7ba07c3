// SPDX-License-Identifier: MIT
#include <QtTest>

#include "qt/grid/GridTheme.h"

namespace planview {

class GridThemeTest : public QObject {
    Q_OBJECT

    static QPalette paletteOf(QRgb ground, QRgb panel, QRgb text) {
        QPalette palette{QColor(text), QColor(panel), QColor(panel),  QColor(panel), QColor(text),
                         QColor(text), QColor(text),  QColor(ground), QColor(panel)};
        palette.setColor(QPalette::Highlight, QColor(0xff3daee9));
        return palette;
    }
    static void everyTextCanBeReadOnEveryGround(const GridTheme& theme) {
        const QRgb grounds[] = {theme.base,     theme.panel,    theme.heading,   theme.total,
                                theme.readOnly, theme.helpLine, theme.accentTint};
        const QRgb texts[] = {theme.text, theme.muted, theme.accent, theme.negative};
        for (const QRgb ground : grounds) {
            for (const QRgb text : texts) {
                const double contrast = contrastRatio(text, ground);
                QVERIFY2(
                    contrast >= 4.5,
                    qPrintable(
                        QStringLiteral("%1 on %2: %3").arg(QColor(text).name(), QColor(ground).name()).arg(contrast)));
            }
        }
    }

private slots:
    void textsCanBeRead_data() {
        QTest::addColumn<bool>("dark");
        QTest::newRow("light") << false;
        QTest::newRow("dark") << true;
    }
    void textsCanBeRead() {
        QFETCH(bool, dark);
        everyTextCanBeReadOnEveryGround(dark ? GridTheme::darkTheme() : GridTheme::light());
    }

    void aPaletteOfHighContrastIsKept_data() {
        QTest::addColumn<QRgb>("ground");
        QTest::addColumn<QRgb>("text");
        QTest::newRow("black") << QRgb(0xff000000) << QRgb(0xffffffff);
        QTest::newRow("white") << QRgb(0xffffffff) << QRgb(0xff000000);
    }
    void aPaletteOfHighContrastIsKept() {
        QFETCH(QRgb, ground);
        QFETCH(QRgb, text);
        const GridTheme theme = GridTheme::forPalette(paletteOf(ground, ground, text));
        QCOMPARE(theme.base, ground);
        QCOMPARE(theme.heading, ground);
        QCOMPARE(theme.text, text);
        QCOMPARE(theme.muted, text);
        QVERIFY(contrastRatio(theme.negative, ground) >= 4.5 && contrastRatio(theme.accent, ground) >= 4.5);
    }

    void otherPalettesHaveTheThemesColours() {
        const auto baseFor = [](QRgb ground, QRgb panel, QRgb text) {
            return GridTheme::forPalette(paletteOf(ground, panel, text)).base;
        };
        QCOMPARE(baseFor(0xffffffff, 0xffefefef, 0xff000000), GridTheme::light().base);
        QCOMPARE(baseFor(0xff1e1e1e, 0xff2d2d2d, 0xffffffff), GridTheme::darkTheme().base);
    }
};

}  // namespace planview

QTEST_MAIN(planview::GridThemeTest)
#include "GridThemeTest.moc"
