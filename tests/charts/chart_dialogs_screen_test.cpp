// The chart window and its dialogs on the offscreen platform: a tool started from its button
// while the menus wait.
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>

#include "charts/frmmain.h"
#include "charts/mfunctions.h"
#include "charts/ui/frmmain_view.h"
#include "market/history_import.h"
#include "runtime/apppath.h"
#include "tests/support/program_screen_test.h"
#include "tests/support/selection.h"

using namespace ostravel;

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
