#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>
#include <QTextBrowser>

#include "app/mdiform1_view.h"
#include "context/screens.h"
#include "ledger/datecaption.h"
#include "ledger/ui/create_view.h"
#include "ledger/ui/frmnewsymbol_view.h"
#include "ledger/ui/frmportwizard_view.h"
#include "ledger/ui/newholding_view.h"
#include "ledger/ui/portfolioexplorer_view.h"
#include "ledger/ui/trade_view.h"
#include "position/ui/setting_view.h"
#include "runtime/vbdate.h"
#include "tests/ledger/holdings.h"
#include "tests/ledger/wizard_rows.h"
#include "tests/support/grid_checks.h"
#include "tests/support/modal_dialog.h"
#include "tests/support/program_screen_test.h"
#include "widgets/datepicker.h"

using namespace ostravel;

namespace {

QStringList headings(const QTableWidget* grid) {
    QStringList texts;
    for (int c = 0; c < grid->columnCount(); ++c) texts << grid->horizontalHeaderItem(c)->text();
    return texts;
}

template <class T = QPushButton>
T* child(const QWidget& screen, const char* name) {
    return screen.findChild<T*>(QString::fromLatin1(name));
}

void clickCell(QTableWidget* grid, int row, int col) {
    const QRect cell = grid->visualRect(grid->model()->index(row, col));
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, cell.center());
}

// What is wrong with the screen's help button: it shows the help below, the screen grows by it,
// and a second press takes it away; empty when nothing.
QString helpFault(QWidget& screen) {
    auto* help = child(screen, "cmdhelp");
    auto* text = child<QTextBrowser>(screen, "RichTextBox1");
    const int closed = screen.sizeHint().height();
    if (help->text() != QLatin1String("Help") || text->isVisibleTo(&screen))
        return QStringLiteral("help shown before it is asked for");
    help->click();
    if (help->text() != QLatin1String("Close") || !text->isVisibleTo(&screen) || text->toPlainText().isEmpty())
        return QStringLiteral("help not shown");
    if (screen.sizeHint().height() < closed + text->height())
        return QStringLiteral("the screen did not grow by its help");
    help->click();
    if (help->text() != QLatin1String("Help") || text->isVisibleTo(&screen) || screen.sizeHint().height() != closed)
        return QStringLiteral("help not taken away");
    return {};
}

// What is wrong with the date button: the calendar opens on today, and its OK closes it and puts
// the date picked on the button.
QString dateFault(QWidget& screen, const char* button) {
    auto* picker = child<DatePicker>(screen, "DatePicker1");
    if (picker->isVisibleTo(&screen))
        return QStringLiteral("calendar shown before it is asked for");
    child(screen, button)->click();
    if (!picker->isVisibleTo(&screen) || picker->InitDate() != QDate::currentDate())
        return QStringLiteral("calendar not opened on today");
    Q_EMIT picker->OK(QDate(2006, 2, 17));
    if (picker->isVisibleTo(&screen) || child(screen, button)->text() != QLatin1String("17/Feb/2006"))
        return QStringLiteral("the pick is not on the button: ") + child(screen, button)->text();
    return {};
}

}  // namespace

class PortfolioWizardsScreenTest : public test::ProgramScreenTest {
    Q_OBJECT
private Q_SLOTS:
    void init() { QVERIFY(openProgram()); }
    void cleanup() { closeProgram(); }

    void createAddsAPortfolioAndThenOnlyGoesForward() {
        m_program->frame().MDIForm_Load();
        Create dialog(*m_program);
        dialog.show();
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Portfolio Management Wizard"));
        QCOMPARE(child<QGroupBox>(dialog, "Frame1")->title(), QStringLiteral("Create Portfolio"));
        QCOMPARE(child<QLineEdit>(dialog, "Text1")->toolTip(), QStringLiteral("Enter Portfolio Name"));
        struct Case {
            const char* name;
            const char* caption;
            bool enabled;
        };
        for (const Case& c :
             {Case{"cmdadd", "Add", true}, Case{"cmdupdate", "Update", false}, Case{"cmddelete", "Delete", false},
              Case{"cmdnext", "Next>", true}, Case{"cmdhelp", "Help", true}, Case{"cmdclose", "Close", true}}) {
            QCOMPARE(child(dialog, c.name)->text(), QString::fromLatin1(c.caption));
            QCOMPARE(child(dialog, c.name)->isEnabled(), c.enabled);
        }
        QCOMPARE(child(dialog, "cmddate")->text(), todayCaption());
        auto* grid = child<QTableWidget>(dialog, "MSFlexGrid1");
        QCOMPARE(headings(grid), (QStringList{"Nos", "Portfolio", "Date"}));
        QCOMPARE(grid->rowCount(), 0);

        QTest::keyClicks(child<QLineEdit>(dialog, "Text1"), QStringLiteral("Growth"));
        QTest::mouseClick(child(dialog, "cmdadd"), Qt::LeftButton);
        QCOMPARE(grid->rowCount(), 1);
        QCOMPARE(grid->item(0, 1)->text(), QStringLiteral("Growth"));
        QCOMPARE(m_program->frame().cmbportfolio.items, (QStringList{"Simulation", "Growth"}));
        QVERIFY(!child(dialog, "cmdclose")->isEnabled());

        QTest::keyClick(&dialog, Qt::Key_Escape);  // the way back is shut
        QVERIFY(dialog.isVisible());

        QTest::mouseClick(child(dialog, "cmdnext"), Qt::LeftButton);
        QVERIFY(!dialog.isVisible());
        QCOMPARE(m_program->module<Screens>().shown(), QStringList{"Newholding"});
        QVERIFY(m_prompt->asked().isEmpty());
    }

    // Every dialog with a help button shows its help below and takes it away; every date button
    // opens the calendar and takes its pick.
    void helpAndDateButtonsOfTheDialogs() {
        Create create(*m_program);
        NewHoldingForm newholding(*m_program);
        TradeForm trade(*m_program);
        SettingForm setting(*m_program);
        struct Case {
            QWidget* screen;
            const char* dateButton;
        };
        for (const Case& c : {Case{&create, "cmddate"}, Case{&newholding, "Command1"}, Case{&trade, "cmddate"},
                              Case{&setting, nullptr}}) {
            c.screen->show();
            QVERIFY(QTest::qWaitForWindowExposed(c.screen));
            QCOMPARE(helpFault(*c.screen), QString());
            if (c.dateButton)
                QCOMPARE(dateFault(*c.screen, c.dateButton), QString());
            c.screen->hide();
        }
        QVERIFY(m_prompt->asked().isEmpty());
    }

    void newholdingCreatesTheHoldingAndHandsOverToTrade() {
        addPortfolio(m_program->store().database(), QStringLiteral("Growth"));
        m_program->frame().MDIForm_Load();
        NewHoldingForm dialog(*m_program);
        dialog.show();
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Create New Holding Wizad"));
        struct Tip {
            const char* name;
            const char* tip;
        };
        for (const Tip& t : {Tip{"Frame1", "Select the NSE or BSE Stock"}, Tip{"Combo1", "select The equity"},
                             Tip{"cmbport", "Select The Portfolio"}, Tip{"Command1", "Select date equity Bought"},
                             Tip{"cmdok", "Confirm the Creation"}})
            QCOMPARE(child<QWidget>(dialog, t.name)->toolTip(), QString::fromLatin1(t.tip));
        QCOMPARE(child(dialog, "cmdclose")->text(), QStringLiteral("Cancel"));
        QCOMPARE(child(dialog, "cmdnew")->text(), QStringLiteral("New"));
        QCOMPARE(child<QRadioButton>(dialog, "optnsebse_0")->text(), QStringLiteral("BSE"));
        QVERIFY(child<QRadioButton>(dialog, "optnsebse_1")->isChecked());
        auto* company = child<QComboBox>(dialog, "Combo1");
        QCOMPARE(company->currentText(), QStringLiteral("20 Microns Limited"));
        QCOMPARE(child<QComboBox>(dialog, "cmbport")->currentText(), QStringLiteral("Growth"));

        // The ticker box takes capitals and swallows digits.
        auto* ticker = child<QLineEdit>(dialog, "txtequitysymbol");
        ticker->clear();
        QTest::keyClicks(ticker, QStringLiteral("tc1s"));
        QCOMPARE(ticker->text(), QStringLiteral("TCS"));
        QCOMPARE(company->currentText(), QStringLiteral("Tata Consultancy Services Limited"));

        m_prompt->answer(Answer::Yes);
        QTest::mouseClick(child(dialog, "cmdok"), Qt::LeftButton);
        QCOMPARE(m_prompt->messages(), QStringList{"Are You sure you have selected the Right Code"});
        QCOMPARE(tableRows(m_program->store().database(),
                           QStringLiteral("select EquitySymbol, portname, VealieFlag from equity")),
                 QStringList{"TCS|Growth|1"});
        QCOMPARE(m_program->module<Screens>().shown(), QStringList{"trade"});
        QVERIFY(!dialog.isVisible());
    }

    void portfolioManagerDeletesTheChosenHolding() {
        Database& db = m_program->store().database();
        addPortfolio(db, QStringLiteral("Growth"));
        addKeyedHolding(db, {"Growth", "INFY"});
        addKeyedHolding(db, {"Growth", "TCS"});
        m_program->frame().cmbportfolio.text = QStringLiteral("Growth");
        frmportwizard screen(*m_program);
        screen.show();
        QCOMPARE(screen.windowTitle(), QStringLiteral("Portfolio Manager"));
        QCOMPARE(child<QGroupBox>(screen, "Frame1")->title(), QStringLiteral("Select Portfolio"));
        auto* details = child<QGroupBox>(screen, "Frame2");
        QCOMPARE(details->title(), QStringLiteral("Equity Details"));
        QVERIFY(!details->isVisible());
        QVERIFY(!child(screen, "cmdtwizard")->isEnabled());
        QCOMPARE(child(screen, "cmdpwizard")->text(), QStringLiteral("Portfolio Wizard"));
        auto* grid = child<QTableWidget>(screen, "MSFlexGrid1");
        QCOMPARE(headings(grid).last(), QStringLiteral("Equity Start Date"));
        QCOMPARE(grid->rowCount(), 2);
        QCOMPARE(test::clippedColumn(*grid), QString());

        clickCell(grid, 1, 3);
        QVERIFY(details->isVisible());
        QCOMPARE(child<QLineEdit>(screen, "Text1")->text(), QStringLiteral("TCS"));
        QCOMPARE(child(screen, "cmdestartdate")->text(), QStringLiteral("02/01/2024"));
        QVERIFY(child(screen, "cmdtwizard")->isEnabled());

        m_prompt->answer(Answer::Yes);
        QTest::mouseClick(child(screen, "cmddelete"), Qt::LeftButton);
        QCOMPARE(m_prompt->messages(), QStringList{"ARE YOU SURE"});
        QCOMPARE(grid->item(0, 1)->text(), QStringLiteral("INFY"));
        QCOMPARE(tableRows(db, QStringLiteral("select EquitySymbol from equity")), QStringList{"INFY"});

        QTest::keyClick(&screen, Qt::Key_Escape);
        QVERIFY(!screen.isVisible());
    }

    void newSymbolAddsToTheSymbolList() {
        frmnewsymbol dialog(*m_program);
        dialog.show();
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Add New Stocksymbol"));
        QStringList labels;
        for (const QLabel* label : dialog.findChildren<QLabel*>()) labels << label->text();
        for (const char* text : {"NSE Symbol", "Stock Name", "Yahoo Symbol ",
                                 "If you Do Not know the Yahoo code, enter any part of the company name In Stock "
                                 "name text Box and clik Find Code"})
            QVERIFY2(labels.contains(QString::fromLatin1(text)), text);
        auto* find = child(dialog, "Command1");
        QCOMPARE(find->text(), QStringLiteral("Find Now"));
        QVERIFY(!find->isEnabled());

        QTest::keyClicks(child<QLineEdit>(dialog, "txtnewsymbol"), QStringLiteral("newco"));
        QTest::keyClicks(child<QLineEdit>(dialog, "txtnewstock"), QStringLiteral("New Co Limited"));
        QTest::keyClicks(child<QLineEdit>(dialog, "Text1"), QStringLiteral("NEWCO.NS"));
        QTest::mouseClick(child(dialog, "cmdadd"), Qt::LeftButton);
        QCOMPARE(m_prompt->messages(), QStringList{"New stocksysmbol added"});
        QCOMPARE(child<QLineEdit>(dialog, "txtnewsymbol")->text(), QStringLiteral("NEWCO"));
        QCOMPARE(
            tableRows(m_program->store().database(), QStringLiteral("select name from qoutense where ticker='NEWCO'")),
            QStringList{"New Co Limited"});
    }

    void menusAndTheOverviewOpenTheScreens() {
        addPortfolio(m_program->store().database(), QStringLiteral("Growth"));
        MDIForm1View frame(*m_program);
        frame.show();
        struct Case {
            const char* action;
            const char* screen;
        };
        for (const Case& c : {Case{"createnewport", "Create"}, Case{"AddNewEquity", "Newholding"}}) {
            QAction* action = frame.action(QString::fromLatin1(c.action));
            const QString shown = test::modalDialogOf([&] { action->trigger(); });
            QCOMPARE(shown, QString::fromLatin1(c.screen));
        }

        frame.action(QStringLiteral("portfoliomanager"))->trigger();
        frame.action(QStringLiteral("portfoliomanager"))->trigger();  // the one screen comes to the front
        int managers = 0;
        for (QMdiSubWindow* sub : frame.mdiArea()->subWindowList())
            managers += sub->widget()->objectName() == QStringLiteral("frmportwizard");
        QCOMPARE(managers, 1);

        frame.action(QStringLiteral("mnynewsymbol"))->trigger();
        auto* symbol = frame.findChild<frmnewsymbol*>(QStringLiteral("frmnewsymbol"));
        QVERIFY(symbol && symbol->isVisible());

        PortfolioExplorerForm overview(*m_program);
        for (const char* name : {"cmdadd", "cmdcreate"}) {
            auto* button = child(overview, name);
            const QString shown = test::modalDialogOf([&] { button->click(); });
            QCOMPARE(shown, QString::fromLatin1(name) == QLatin1String("cmdadd") ? QStringLiteral("Newholding")
                                                                                 : QStringLiteral("Create"));
        }
    }
};

QTEST_MAIN(PortfolioWizardsScreenTest)
#include "portfolio_wizards_screen_test.moc"
