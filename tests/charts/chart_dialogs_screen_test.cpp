// The chart window and its dialogs on the offscreen platform: the menu entries that open them,
// the colour answered through the prompt and the file after Save and after Cancel, the indicator
// list edited in place, and a tool started from its button while the menus wait.
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <functional>

#include "charts/chart_settings.h"
#include "charts/frmmain.h"
#include "charts/indicators/macd.h"
#include "charts/mfunctions.h"
#include "charts/midicators.h"
#include "charts/ui/frmmain_view.h"
#include "market/history_import.h"
#include "runtime/apppath.h"
#include "tests/support/program_screen_test.h"
#include "tests/support/selection.h"

using namespace ostravel;

namespace {

QString ini(const char* section, const char* key) {
    return GetIni(appFile(QStringLiteral("Chart.INI")), QString::fromLatin1(section), QString::fromLatin1(key));
}

}  // namespace

class ChartDialogsScreenTest : public test::ProgramScreenTest {
    Q_OBJECT
private Q_SLOTS:
    void init() {
        QVERIFY(openProgram());
        importHistoryFile(qEnvironmentVariable("OSTRAVEL_TEST_DATA") + QStringLiteral("/history/TATAMOTORS.csv"),
                          QStringLiteral("TATAMOTORS"));
        test::selectHolding(m_program->frame(), QStringLiteral("TATAMOTORS"), QStringLiteral("Long Term"));
        MakeIniFile(appFile(QStringLiteral("Chart.INI")));
        m_window = std::make_unique<FrmMainForm>(*m_program, nullptr);
        m_window->show();
        m_window->loadHistory();
    }
    void cleanup() {
        m_window.reset();
        closeProgram();
    }

    void optionsShowAColourLiveAndOnlySaveKeepsIt() {
        for (const char* button : {"cmdCancel", "cmdSaveExit"}) {
            m_prompt->answerColour(255);
            bool live = false;
            whileModal("mnuoptions", [&](QWidget* dialog) {
                dialog->findChild<QPushButton*>(QStringLiteral("lblColor(0)"))->click();
                live = m_window->state().settings().BackColor == 255;
                auto* div1 = dialog->findChild<QLineEdit*>(QStringLiteral("txtDiv1"));
                div1->clear();
                QTest::keyClicks(div1, QStringLiteral("4a4."));
                QCOMPARE(div1->text(), QStringLiteral("44."));
                dialog->findChild<QPushButton*>(QString::fromLatin1(button))->click();
            });
            QVERIFY(live);
            const bool saved = QLatin1String(button) == QLatin1String("cmdSaveExit");
            QCOMPARE(ini("Settings", "BackColor"), saved ? QStringLiteral("255") : QStringLiteral("0"));
            QCOMPARE(m_window->state().settings().BackColor, saved ? 255 : 0);
        }
    }

    void indicatorsEditAPeriodInPlaceAndSave() {
        whileModal("mnuindicators", [&](QWidget* dialog) {
            auto* list = dialog->findChild<QTreeWidget*>(QStringLiteral("lstVwSettings"));
            list->setCurrentItem(list->topLevelItem(4));
            QCOMPARE(list->currentItem()->text(0), QStringLiteral("MACDLen1"));
            QTest::keyClick(list, Qt::Key_Return);
            auto* editor = dialog->findChild<QLineEdit*>(QStringLiteral("txtEdit"));
            QVERIFY(editor->isVisible());
            editor->selectAll();
            QTest::keyClicks(editor, QStringLiteral("2x1"));
            QTest::keyClick(editor, Qt::Key_Return);
            QVERIFY(!editor->isVisible());
            QCOMPARE(list->topLevelItem(4)->text(1), QStringLiteral("21"));
            dialog->findChild<QPushButton*>(QStringLiteral("cmdSave"))->click();
        });
        QCOMPARE(ini("MACDSettings", "MACDLen1"), QStringLiteral("21"));
        QCOMPARE(m_program->module<MIdicators>().MACDInd->MACDLen1, std::int16_t{21});
    }

    void aToolButtonStartsTheToolAndTheMenusWaitUntilItsLastClick() {
        whileModal("drawing", [&](QWidget* dialog) {
            QCOMPARE(dialog->findChild<QPushButton*>(QStringLiteral("picButton(0)"))->text(),
                     QStringLiteral("Cancel && Exit"));
            QVERIFY(!dialog->findChild<QPushButton*>(QStringLiteral("picButton(6)"))->isEnabled());
            dialog->findChild<QPushButton*>(QStringLiteral("picButton(1)"))->click();
        });
        FrmMain& state = m_window->state();
        QVERIFY(state.DrawingTools.Active());
        for (const char* name : {"mnuoptions", "drawing", "mnuincrease", "mnuPuIndSettings"})
            QVERIFY2(!action(name)->isEnabled(), name);
        QVERIFY(action("mnuPuCancelDrawing")->isEnabled());
        QCOMPARE(m_window->findChild<QLabel*>(QStringLiteral("txtDrawInstruct"))->text(),
                 QStringLiteral("Pick 1st Pt."));
        const QImage before = state.ChartBoxV;
        auto* picture = m_window->findChild<QWidget*>(QStringLiteral("ChartBoxV"));
        QTest::mouseClick(picture, Qt::LeftButton, {}, QPoint(100, 100));
        QTest::mouseClick(picture, Qt::LeftButton, {}, QPoint(300, 150));
        QVERIFY(!state.DrawingTools.Active() && action("drawing")->isEnabled());
        QVERIFY(state.ChartBoxV != before);

        // Esc gives a tool up.
        state.DrawingTools.FibRetrace();
        QTest::keyClick(m_window.get(), Qt::Key_Escape);
        QVERIFY(!state.DrawingTools.Active());
    }

private:
    QAction* action(const char* name) { return m_window->findChild<QAction*>(QString::fromLatin1(name)); }
    // Triggers the chart's menu entry and works the modal dialog it opens while it shows.
    void whileModal(const char* entry, const std::function<void(QWidget*)>& work) {
        bool worked = false;
        QTimer::singleShot(0, [&] {
            if (QWidget* dialog = QApplication::activeModalWidget()) {
                work(dialog);
                worked = true;
                if (dialog->isVisible())
                    dialog->close();
            }
        });
        action(entry)->trigger();
        QVERIFY2(worked, entry);
    }

    std::unique_ptr<FrmMainForm> m_window;
};

QTEST_MAIN(ChartDialogsScreenTest)
#include "chart_dialogs_screen_test.moc"
