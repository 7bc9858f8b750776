#include <QCalendarWidget>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTest>

#include "tools/ui/calc_view.h"
#include "tools/ui/keyboard_help_view.h"
#include "widgets/datepicker.h"

using namespace ostravel;

class ToolsScreenTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void calcTakesKeysAndButtons() {
        calc screen;
        screen.show();
        QTest::keyClicks(&screen, QStringLiteral("12+30"));
        QTest::keyClick(&screen, Qt::Key_Return);
        auto* display = screen.findChild<QLineEdit*>(QStringLiteral("txtdisplay"));
        QCOMPARE(display->text(), QStringLiteral("42"));
        screen.findChild<QPushButton*>(QStringLiteral("cmd/"))->click();
        screen.findChild<QPushButton*>(QStringLiteral("cmd0"))->click();
        screen.findChild<QPushButton*>(QStringLiteral("cmd="))->click();
        QCOMPARE(display->text(), QStringLiteral("Cannot divide by zero"));
        QTest::keyClick(&screen, Qt::Key_Escape);
        QCOMPARE(display->text(), QStringLiteral("0"));
    }

    void datePickerOpensOnInitDateAndAnswers() {
        DatePicker picker;
        QSignalSpy ok(&picker, &DatePicker::OK);
        QSignalSpy cancel(&picker, &DatePicker::Cancel);
        QVERIFY(!picker.isVisible());  // held hidden until a date button asks

        picker.setProperty("InitDate", QDate(2006, 2, 17));
        QCOMPARE(picker.selectedDate(), QDate(2006, 2, 17));
        picker.show();
        picker.findChild<QPushButton*>(QStringLiteral("cmdok"))->click();
        QCOMPARE(ok.count(), 1);
        QCOMPARE(ok.front().front().toDate(), QDate(2006, 2, 17));

        QTest::keyClick(&picker, Qt::Key_Escape);
        QCOMPARE(cancel.count(), 1);
        picker.findChild<QPushButton*>(QStringLiteral("cmdcancel"))->click();
        QCOMPARE(cancel.count(), 2);

        picker.setInitDate(QDate());  // no date: today
        QCOMPARE(picker.InitDate(), QDate::currentDate());
    }

    void keyboardHelpListsTheKeys() {
        FRM_KEYBOARD_HELP screen;
        auto* grid = screen.findChild<QTableWidget*>(QStringLiteral("MSFlexGrid1"));
        QVERIFY(grid->rowCount() > 5);
        QCOMPARE(grid->horizontalHeaderItem(0)->text(), QStringLiteral("Key"));
        bool calculator = false;
        for (int r = 0; r < grid->rowCount(); ++r)
            calculator |= grid->item(r, 0)->text() == QStringLiteral("Ctrl+L") &&
                          grid->item(r, 1)->text() == QStringLiteral("Calculator");
        QVERIFY(calculator);
    }
};

QTEST_MAIN(ToolsScreenTest)
#include "tools_screen_test.moc"
