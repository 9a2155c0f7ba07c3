// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QtTest>

#include "qt/WhenShown.h"
#include "qt/platform/QtForms.h"
#include "qt/platform/QtMessageBoxes.h"
#include "qt/platform/QtSystemInformation.h"

namespace planview {

namespace {

class UnknownForm final : public Form {
public:
    std::string_view Name() const noexcept override { return "frmUnknown"; }
    std::string_view Caption() const noexcept override { return "Unknown"; }
};

}  // namespace

/// What the desktop layer gives the control: message boxes, forms and system information.
class QtPlatformTest : public QObject {
    Q_OBJECT

private slots:
    void answers_data() {
        QTest::addColumn<int>("buttons");
        QTest::addColumn<int>("press");
        QTest::addColumn<int>("answer");
        const auto add = [](const char* name, MessageButtons buttons, int press, MessageAnswer answer) {
            QTest::newRow(name) << static_cast<int>(buttons) << press << static_cast<int>(answer);
        };
        constexpr int Escape = 0;
        add("ok", MessageButtons::Ok, QMessageBox::Ok, MessageAnswer::Ok);
        add("cancel", MessageButtons::OkCancel, QMessageBox::Cancel, MessageAnswer::Cancel);
        add("yes", MessageButtons::YesNo, QMessageBox::Yes, MessageAnswer::Yes);
        add("no", MessageButtons::YesNoCancel, QMessageBox::No, MessageAnswer::No);
        add("escape means cancel", MessageButtons::YesNoCancel, Escape, MessageAnswer::Cancel);
        add("escape of a single button", MessageButtons::Ok, Escape, MessageAnswer::Ok);
    }
    void answers() {
        QFETCH(int, buttons);
        QFETCH(int, press);
        QFETCH(int, answer);
        QWidget control;
        QtMessageBoxes boxes(control);
        QString shown;
        whenShown<QMessageBox>([press, &shown](QMessageBox* box) {
            shown = box->text();
            if (QAbstractButton* button = box->button(static_cast<QMessageBox::StandardButton>(press))) {
                button->click();
            } else {
                QTest::keyClick(box, Qt::Key_Escape);
            }
        });
        const MessageAnswer given = boxes.Show({"<i>as written</i>", "Title", static_cast<MessageButtons>(buttons),
                                                MessageIcon::Question, MessageAnswer::Ok});
        QCOMPARE(static_cast<int>(given), answer);
        QCOMPARE(shown, QStringLiteral("<i>as written</i>"));
    }

    void returnPressesTheDefault() {
        QWidget control;
        QtMessageBoxes boxes(control);
        whenShown<QMessageBox>([](QMessageBox* box) { QTest::keyClick(box, Qt::Key_Return); });
        QCOMPARE(static_cast<int>(boxes.Show({"?", "", MessageButtons::YesNo, MessageIcon::None, MessageAnswer::No})),
                 static_cast<int>(MessageAnswer::No));
    }

    void aFormWithoutAWindowIsNotWaitedFor() {
        QWidget control;
        QtForms forms(control);
        UnknownForm form;
        forms.Load(form);
        forms.ShowModal(form);
        forms.Hide(form);
        forms.Unload(form);
    }

    void systemInformation() {
        const QtSystemInformation system;
        QVERIFY(system.Memory() && system.Memory()->totalPhysical > 0 &&
                system.Memory()->totalPageFile >= system.Memory()->availablePageFile);
        QVERIFY(system.PlatformId().has_value());
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::German));
        QCOMPARE(system.DecimalMark(), ',');
        QLocale::setDefault(QLocale(QLocale::English));
        QCOMPARE(system.DecimalMark(), '.');
        QLocale::setDefault(before);
    }
};

}  // namespace planview

QTEST_MAIN(planview::QtPlatformTest)
#include "QtPlatformTest.moc"
