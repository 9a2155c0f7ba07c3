// SPDX-License-Identifier: MIT
#include <QLineEdit>
#include <QMetaMethod>
#include <QPointer>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QtTest>

#include <planview/qt/PlanViewWidget.h>

#include "components/GridControl.h"
#include "control/ControlParts.h"
#include "qt/GridOnScreen.h"
#include "qt/SignalSink.h"
#include "qt/VariantConversion.h"
#include "support/SampleTables.h"
#include "support/ScriptedPlatform.h"
#include "trace/frmTrace.h"

namespace planview {

namespace {

/// The methods of one kind that the widget itself declares, in their order.
std::vector<QMetaMethod> declared(QMetaMethod::MethodType type) {
    std::vector<QMetaMethod> methods;
    const QMetaObject& widget = PlanViewWidget::staticMetaObject;
    for (int i = widget.methodOffset(); i < widget.methodCount(); ++i) {
        if (widget.method(i).methodType() == type) {
            methods.push_back(widget.method(i));
        }
    }
    return methods;
}

QMetaType typeOf(Variant::Kind kind) {
    switch (kind) {
        case Variant::Kind::Int16:
            return QMetaType::fromType<short>();
        case Variant::Kind::Int32:
            return QMetaType::fromType<int>();
        case Variant::Kind::Text:
            return QMetaType::fromType<QString>();
        default:
            return QMetaType::fromType<QVariant>();
    }
}

/// Arguments of the right kinds, each another one.
std::vector<Variant> sampleArguments(const EventDescription& event) {
    std::vector<Variant> arguments;
    for (const EventArgument& argument : event.arguments) {
        const int number = static_cast<int>(arguments.size()) + 11;
        switch (argument.kind) {
            case Variant::Kind::Int16:
                arguments.emplace_back(static_cast<std::int16_t>(number));
                break;
            case Variant::Kind::Int32:
                arguments.emplace_back(100000 + number);
                break;
            case Variant::Kind::Text:
                arguments.emplace_back("text " + std::to_string(number));
                break;
            default:
                arguments.emplace_back(number + 0.5);
                break;
        }
    }
    return arguments;
}

void build(PlanViewWidget& widget, const test::Tables& tables) {
    tables.GiveTo(widget.control());
    widget.DP_Import_Attribute();
    widget.DP_Import_Create();
}

test::Tables smallTables() {
    test::Tables tables;
    tables.AddColumn(1, "Jan");
    tables.AddColumn(2, "Feb");
    tables.AddLine(1, "Sales");
    tables.AddValue(1, 1, 12.5);
    return tables;
}

}  // namespace

/// A slot that deletes the widget, whatever the signal.
class Killer : public QObject {
    Q_OBJECT

public:
    explicit Killer(QWidget* widget) : widget_(widget) {}

public slots:
    void kill() { delete widget_; }

private:
    QPointer<QWidget> widget_;
};

/// The widget that hosts embed.
class PlanViewWidgetTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { useTestFont(); }

    void membersAreInvokableInTheirOrder() {
        const std::vector<QMetaMethod> methods = declared(QMetaMethod::Method);
        QVERIFY(methods.size() >= 65);
        for (const MemberDescription& member : DescribeMembers()) {
            const QMetaMethod& method = methods[static_cast<std::size_t>(member.id - 1)];
            const QByteArray name(member.name.data(), static_cast<qsizetype>(member.name.size()));
            QCOMPARE(method.name(), name);
            QCOMPARE(method.parameterCount(), member.argumentCount);
            QCOMPARE(method.returnMetaType(),
                     name.startsWith("PROP_Get_") ? QMetaType::fromType<ObjectRef>() : QMetaType::fromType<short>());
            if (member.argumentCount == 1) {
                QCOMPARE(method.parameterMetaType(0),
                         name == "plv_ActiveNode" ? QMetaType::fromType<QString>() : QMetaType::fromType<ObjectRef>());
            }
        }
    }

    void eventsAreSignalsInTheirOrder() {
        const std::vector<QMetaMethod> methods = declared(QMetaMethod::Signal);
        QVERIFY(methods.size() >= DescribeEvents().size());
        for (std::size_t i = 0; i < DescribeEvents().size(); ++i) {
            const EventDescription& event = DescribeEvents()[i];
            QCOMPARE(methods[i].name(), QByteArray(event.name.data(), static_cast<qsizetype>(event.name.size())));
            QCOMPARE(methods[i].parameterCount(), static_cast<int>(event.arguments.size()));
            for (int p = 0; p < methods[i].parameterCount(); ++p) {
                const EventArgument& argument = event.arguments[static_cast<std::size_t>(p)];
                QCOMPARE(methods[i].parameterMetaType(p), typeOf(argument.kind));
                QCOMPARE(methods[i].parameterNames()[p].toStdString(), std::string(argument.name));
            }
        }
    }

    void aSignalCarriesItsEvent() {
        PlanViewWidget widget;
        SignalSink sink(widget);
        const std::vector<QMetaMethod> methods = declared(QMetaMethod::Signal);
        for (std::size_t i = 0; i < DescribeEvents().size(); ++i) {
            QSignalSpy spy(&widget, methods[i]);
            const std::vector<Variant> arguments = sampleArguments(DescribeEvents()[i]);
            sink.OnEvent(DescribeEvents()[i].id, arguments);
            QCOMPARE(spy.count(), 1);
            for (std::size_t a = 0; a < arguments.size(); ++a) {
                QVariant heard = spy[0][static_cast<int>(a)];
                if (heard.metaType() == QMetaType::fromType<QVariant>()) {
                    heard = heard.value<QVariant>();
                }
                QCOMPARE(heard, toQVariant(arguments[a]));
            }
        }
    }

    void membersAreCalledByName() {
        test::ScriptedPlatform platform;
        PlanViewWidget widget({.messageBoxes = &platform, .forms = &platform, .clipboard = &platform});
        const ObjectRef table = test::Tables().tab;
        short status = -1;
        QVERIFY(QMetaObject::invokeMethod(&widget, "PROP_Set_TAB", Q_RETURN_ARG(short, status),
                                          Q_ARG(planview::ObjectRef, table)));
        QCOMPARE(status, short{0});
        ObjectRef found;
        QVERIFY(QMetaObject::invokeMethod(&widget, "PROP_Get_TAB", Q_RETURN_ARG(planview::ObjectRef, found)));
        QCOMPARE(found, table);
        QVERIFY(widget.setTable(QStringLiteral("TAB_OLD"), table));
        QCOMPARE(widget.PROP_Get_TAB_OLD(), table);
        QCOMPARE(widget.table(QStringLiteral("TAB_OLD")), table);
        QVERIFY(!widget.setTable(QStringLiteral("NONE"), table));
        QVERIFY(!widget.table(QStringLiteral("NONE")));
        QVERIFY(QMetaObject::invokeMethod(&widget, "plv_LayoutShow"));
        QCOMPARE(platform.messages.size(), std::size_t{1});
        QVERIFY(QMetaObject::invokeMethod(&widget, "plv_ActiveNode", Q_ARG(QString, QStringLiteral("node"))));
    }

    void commandsAreInvokable() {
        test::ScriptedPlatform platform;
        PlanViewWidget widget(platform.Interfaces());
        for (const char* slot : {
#define PLANVIEW_SLOT(NAME, COMMAND) #NAME,
#include "qt/Slots.def"
             }) {
            QVERIFY2(QMetaObject::invokeMethod(&widget, slot), slot);
        }
    }

    void tablesAreShown() {
        PlanViewWidget widget;
        widget.resize(500, 300);
        widget.show();
        build(widget, smallTables());
        const auto cell = ControlParts(widget.control()).Grid().FindCell({"COL1", "ROW1"});
        QVERIFY(cell.has_value());
        auto* view = widget.findChild<GridView*>();
        const QImage image = view->viewport()->grab().toImage();
        const QRect place = view->cellRect(*cell);
        QVERIFY(countColor(image, place.adjusted(4, 3, -8, -3), GridTheme::light().text) > 3);
        QVERIFY(widget.hasFocus() || widget.focusProxy() == view);
    }

    void severalLiveSideBySide() {
        QWidget window;
        auto* layout = new QVBoxLayout(&window);
        std::vector<QPointer<PlanViewWidget>> widgets;
        for (int i = 0; i < 4; ++i) {
            widgets.emplace_back(new PlanViewWidget);
            layout->addWidget(widgets.back());
            test::Tables tables = smallTables();
            tables.AddColumn(3 + i, "More");
            build(*widgets.back(), tables);
        }
        window.resize(400, 900);
        window.show();
        delete widgets[1];
        QCoreApplication::processEvents();
        for (const int i : {0, 2, 3}) {
            GridControl& grid = ControlParts(widgets[static_cast<std::size_t>(i)]->control()).Grid();
            QVERIFY(grid.FindColumn("COL" + std::to_string(3 + i)).has_value());
            QCOMPARE(grid.Columns(ColumnArea::Center).size(), std::size_t{3});
            QVERIFY(widgets[static_cast<std::size_t>(i)]->height() > 100);
        }
    }

    void deletedInsideAnySignal() {
        for (const EventDescription& event : DescribeEvents()) {
            QPointer<PlanViewWidget> widget = new PlanViewWidget;
            const std::string signal =
                "2" +
                declared(QMetaMethod::Signal)[static_cast<std::size_t>(event.id) - 1].methodSignature().toStdString();
            Killer killer(widget);
            connect(widget, signal.c_str(), &killer, SLOT(kill()));
            auto sink = std::make_unique<SignalSink>(*widget);
            sink->OnEvent(event.id, sampleArguments(event));
            QVERIFY2(!widget, event.name.data());
        }
    }

    /// The call that showed the box still runs when its widget is gone.
    void deletedInsideOneOfItsMembers() {
        class DeletingBoxes final : public MessageBoxes {
        public:
            QPointer<PlanViewWidget> widget;
            MessageAnswer Show(const MessageBoxRequest& request) override {
                delete widget;
                return request.defaultAnswer;
            }
        } boxes;
        test::ScriptedPlatform platform;
        boxes.widget = new PlanViewWidget({.messageBoxes = &boxes, .forms = &platform, .clipboard = &platform});
        boxes.widget->plv_LayoutMode();
        QCOMPARE(boxes.widget->plv_LayoutShow(), short{0});
        QVERIFY(!boxes.widget);
    }

    /// Deleting the widget ends the grid, which has told of the selection and is still on its way back.
    void deletedByAnInputToItsGrid() {
        class Deleting final : public ReportLog {
        public:
            QPointer<PlanViewWidget> widget;
            void SelectionChanged(const CellKey&, bool) override { delete widget; }
        } listener;
        for (const bool byKey : {false, true}) {
            listener.widget = new PlanViewWidget;
            listener.widget->resize(500, 300);
            listener.widget->show();
            build(*listener.widget, smallTables());
            auto* view = listener.widget->findChild<GridView*>();
            GridControl& grid = ControlParts(listener.widget->control()).Grid();
            const QPoint place = view->cellRect(*grid.FindCell({"COL2", "ROW1"})).center();
            grid.SetEvents(&listener);
            if (byKey) {
                QTest::keyPress(view, Qt::Key_Right);
            } else {
                QTest::mousePress(view->viewport(), Qt::LeftButton, Qt::NoModifier, place);
            }
            QVERIFY(!listener.widget);
        }
    }

    void focusAndSizeReachTheControl() {
        test::ScriptedPlatform platform;
        QWidget window;
        auto* other = new QLineEdit(&window);
        auto* widget =
            new PlanViewWidget({.messageBoxes = &platform, .forms = &platform, .clipboard = &platform}, &window);
        widget->setGeometry(0, 40, 300, 200);
        window.resize(400, 300);
        window.show();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        other->setFocus();
        widget->plv_EnableTrace();
        frmTrace::Share()->TraceView.Clear();
        widget->setFocus();
        other->setFocus();
        widget->resize(310, 220);
        QStringList methods;
        const ListView& trace = frmTrace::Share()->TraceView;
        for (std::size_t i = 0; i < trace.Count(); ++i) {
            if (trace.Item(i).text == "USERCONTROL") {
                methods << QString::fromStdString(trace.Item(i).subItems[1] + trace.Item(i).subItems[2]);
            }
        }
        platform.answer = MessageAnswer::No;
        widget->plv_DisableTrace();
        QCOMPARE(methods, (QStringList{"EnterFocus{}", "GotFocus{}", "LostFocus{}", "ExitFocus{}",
                                       "Resize{width:310 height:220}"}));
    }

    void theSchemeFollowsThePaletteUnlessChosen() {
        PlanViewWidget widget;
        build(widget, smallTables());
        const auto ground = [&] {
            const QImage image = widget.renderToImage(QSize(600, 400)).convertToFormat(QImage::Format_RGB32);
            return image.pixel(590, 390);
        };
        QCOMPARE(widget.colorScheme(), PlanViewWidget::ColorScheme::System);
        QCOMPARE(ground(), GridTheme::light().panel);
        QPalette dark;
        dark.setColor(QPalette::Base, Qt::black);
        dark.setColor(QPalette::Text, Qt::white);
        widget.setPalette(dark);
        QCOMPARE(ground(), GridTheme::darkTheme().panel);
        QVERIFY(widget.setProperty("colorScheme", QVariant::fromValue(PlanViewWidget::ColorScheme::Light)));
        QCOMPARE(ground(), GridTheme::light().panel);
        widget.setPalette(QPalette(Qt::white));
        widget.setColorScheme(PlanViewWidget::ColorScheme::Dark);
        QCOMPARE(ground(), GridTheme::darkTheme().panel);
    }

    void picturesNeedNoWindow() {
        PlanViewWidget widget;
        build(widget, smallTables());
        const QImage single = widget.renderToImage(QSize(400, 300), 1.0);
        const QImage twice = widget.renderToImage(QSize(400, 300), 2.0);
        QCOMPARE(single.size(), QSize(400, 300));
        QCOMPARE(twice.size(), QSize(800, 600));
        const QRgb heading = GridTheme::light().heading;
        QCOMPARE(single.pixel(3, 3), heading);
        QCOMPARE(twice.pixel(6, 6), heading);
        const int written = countInk(single, single.rect(), GridTheme::light().base);
        QVERIFY2(written > 300, qPrintable(QString::number(written)));
        QVERIFY(countInk(twice, twice.rect(), GridTheme::light().base) > 2 * written);
    }

    void hostsBringTheirOwnBitmaps() {
        PlanViewWidget widget;
        QPixmap red(32, 32);
        red.fill(Qt::red);
        widget.registerBitmap(QStringLiteral("mine"), QIcon(red));
        test::Tables tables = smallTables();
        test::AddRow(
            *tables.cellAttr,
            {{"COLUMN", std::int16_t{2}}, {"LINE", std::int16_t{1}}, {"BITMAP", "mine"}, {"FGCOLOR", std::int16_t{1}}});
        build(widget, tables);
        const QImage image = widget.renderToImage(QSize(600, 200));
        QVERIFY(countColor(image, image.rect(), qRgb(255, 0, 0)) > 150);
    }
};

}  // namespace planview

QTEST_MAIN(planview::PlanViewWidgetTest)
#include "PlanViewWidgetTest.moc"
