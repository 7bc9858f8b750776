#include <QComboBox>
#include <QDateEdit>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTest>
#include <memory>

#include "app/mdiform1_view.h"
#include "context/program_folder.h"
#include "context/screens.h"
#include "position/equitymanager.h"
#include "position/ui/equitymanager_view.h"
#include "runtime/vbdate.h"
#include "store/database.h"
#include "tests/support/program_screen_test.h"
#include "tests/support/selection.h"

using namespace ostravel;

namespace {

const QColor kShownRed(255, 0, 0);
const QColor kShownGreen(0, 255, 0);
const QColor kShownWhite(255, 255, 255);

}  // namespace

class EquityManagerScreenTest : public test::ProgramScreenTest {
    Q_OBJECT
public:
    // The folder is left bare: one test prepares it as the program's start does.
    EquityManagerScreenTest() : ProgramScreenTest(test::FolderSetup::Bare) {}

private Q_SLOTS:
    void init() {
        QVERIFY(openProgram());
        db().execute(
            QStringLiteral("update users set MinTradeSell=1000, MinTradeBuy=1000, MinTradeSellSh=1, "
                           "MinTradeBuySh=1, ResistSell=10, ResistBuy=10"));
    }
    void cleanup() { closeProgram(); }

    // Group boxes by their title, buttons by their caption, boxes by their tip; then the labels.
    void captionsTipsAndWords() {
        EquityManagerForm screen(*m_program);
        const QStringList controls =
            QStringLiteral(
                "Frame2_1=Current Position Summary|Frame2_0=Position Management Setting|Frame3=Current Trade Advise|"
                "Frame5=Trade History|Command6=Save Setting|cmdaddtrade=Add Trade|Command5=Recalculate|"
                "cmdwhatif=What if|Command3=Run Simulation|txtmstradebuy=Set Minimum Share to Buy|"
                "txtmstradesell=Set Minimum Share to Sell|txtbuyres=Buy safe Margin|txtsellres=Sell safe Margin|"
                "txtfeebuy=Enter The  Buy Broker Commission in %|txtfeesell=Enter The Sell Broker Commission in %|"
                "txtmtbuy=Set Minimum buy Trade amount|txtmtsell=Set Minimum Sell Trade amount")
                .split(QLatin1Char('|'));
        for (const QString& entry : controls) {
            const QString name = entry.section(QLatin1Char('='), 0, 0);
            const QString text = entry.section(QLatin1Char('='), 1);
            QWidget* control = screen.findChild<QWidget*>(name);
            QVERIFY2(control, qPrintable(name));
            if (auto* group = qobject_cast<QGroupBox*>(control))
                QCOMPARE(group->title(), text);
            else if (auto* button = qobject_cast<QPushButton*>(control))
                QCOMPARE(button->text(), text);
            else
                QCOMPARE(control->toolTip(), text);
        }
        QStringList words;
        for (const QLabel* label : screen.findChildren<QLabel*>()) words << label->text();
        const QStringList expected =
            QStringLiteral(
                "% Increase in cash|% Increase in stock value|Percentage of cash at risk|Min Trade Amount|"
                "Min. Share to Trade|Broker Commission (%)|Resistance(Default 10%)|Beginning Cash|RECOMMENDATION :|"
                "Recommended Trade|Next Sell Price|Next Buy Price|Next Sell Qty|Next Buy Qty|For Rs.|Share@ Rs.|"
                "Next Sell|Next Buy|Sell advise:|Buy advise:|Select Begin Date|Select End date|"
                "Select Daily/Weekly/Monthly|Ostravel Result|Profit in Rs: |Profit % :|Buy  & Hold Result|"
                "Profit In Rs :|Buy & Hold %:")
                .split(QLatin1Char('|'));
        for (const QString& word : expected) QVERIFY2(words.contains(word), qPrintable(word));
        QCOMPARE(screen.windowTitle(), QStringLiteral("Equity Manager"));
        // The simulation's button waits, and the advice's figures show only after an advice.
        QVERIFY(!screen.findChild<QPushButton*>(QStringLiteral("Command3"))->isEnabled());
        QVERIFY(screen.findChild<QWidget*>(QStringLiteral("Frame4"))->isHidden());
    }

    void settingsTakeOnlyNumbersAndFiguresAreNoTabStops() {
        EquityManagerForm screen(*m_program);
        QList<QLineEdit*> settings;
        QList<QLineEdit*> figures;
        for (QLineEdit* box : screen.findChildren<QLineEdit*>())
            if (box->objectName().startsWith(QStringLiteral("txt")))
                (box->isReadOnly() ? figures : settings) << box;
        QCOMPARE(settings.size(), 9);
        QCOMPARE(figures.size(), 21);  // 15 of the position, 6 of the next trades
        for (QLineEdit* box : settings) {
            box->clear();
            QTest::keyClicks(box, QStringLiteral("1a2.5x"));
            QCOMPARE(box->text(), QStringLiteral("12.5"));
        }
        for (QLineEdit* box : figures) QVERIFY2(!(box->focusPolicy() & Qt::TabFocus), qPrintable(box->objectName()));
        // What is typed is what the state holds.
        QCOMPARE(m_program->module<EquityManager>().txtbegincash.text, QStringLiteral("12.5"));
    }

    void recalculateMirrorsTheAdviceWithItsColours() {
        addHolding(140);
        EquityManagerForm screen(*m_program);
        screen.findChild<QPushButton*>(QStringLiteral("Command5"))->click();

        QCOMPARE(screen.findChild<QLabel*>(QStringLiteral("lbladvise"))->text(), QStringLiteral("SELL"));
        QCOMPARE(screen.windowTitle(), QStringLiteral("Infosys Limited"));
        QVERIFY(!screen.findChild<QWidget*>(QStringLiteral("Frame4"))->isHidden());
        QCOMPARE(screen.findChild<QLabel*>(QStringLiteral("Label17_2"))->text(), QStringLiteral("Actual Trade"));
        QCOMPARE(text(screen, "txtnextsellshare"), QStringLiteral("140"));
        QCOMPARE(text(screen, "txtnextsell"), QStringLiteral("19"));
        QCOMPARE(text(screen, "txtcurrprice"), QStringLiteral("140"));
        for (const char* name : {"txtnextsell", "txtnextsellshare", "txtnextsellamount"})
            QCOMPARE(colour(screen, name), kShownRed);
        for (const char* name : {"txtnextbuy", "txtnextbuyshare", "txtnextbuyamount"})
            QCOMPARE(colour(screen, name), kShownWhite);
        // Cash 5000 against 4000 at the beginning: a rise, in green.
        QCOMPARE(colour(screen, "txtcashper"), kShownGreen);
        QCOMPARE(text(screen, "txtcashper"), QStringLiteral("25%"));
    }

    // The sampling's days back are the state's: the screen shows its dates and passes the choice
    // and a date picked.
    void combo1AndTheDatesReachTheState() {
        EquityManagerForm screen(*m_program);
        auto* begin = screen.findChild<QDateEdit*>(QStringLiteral("dtbdate"));
        auto* end = screen.findChild<QDateEdit*>(QStringLiteral("dtedate"));
        QCOMPARE(end->date(), QDate::currentDate());
        QCOMPARE(begin->date(), QDate::currentDate().addDays(-365));

        auto* combo = screen.findChild<QComboBox*>(QStringLiteral("Combo1"));
        QCOMPARE(combo->count(), 3);
        combo->setCurrentIndex(combo->findText(QStringLiteral("Weekly")));

        QCOMPARE(begin->date(), end->date().addDays(-730));
        QCOMPARE(m_program->module<EquityManager>().dtbdate, dateSerial(begin->date()));
        // A date picked reaches the state.
        const QDate picked(2021, 3, 4);
        end->setDate(picked);
        QCOMPARE(m_program->module<EquityManager>().dtedate, dateSerial(picked));
    }

    void activatingTheScreenAsksWhenThereIsNoHolding() {
        m_program->frame().cmbportfolio.text = QStringLiteral("Growth");
        m_prompt->answer(Answer::No);
        QMdiArea area;
        area.addSubWindow(new EquityManagerForm(*m_program))->show();
        area.show();
        QTRY_COMPARE(m_prompt->messages().size(), 1);
        QCOMPARE(m_prompt->messages().front(),
                 QStringLiteral("You do not have any Equity holding , Do you want to Create new holding"));
        QCOMPARE(area.findChild<QLineEdit*>(QStringLiteral("txtmtbuy"))->text(), QStringLiteral("1000"));
    }

    void saveSettingWritesWhatWasTyped() {
        EquityManagerForm screen(*m_program);
        loadusersetting(*m_program);
        screen.refresh();
        auto* box = screen.findChild<QLineEdit*>(QStringLiteral("txtmtsell"));
        box->clear();
        QTest::keyClicks(box, QStringLiteral("2500"));
        screen.findChild<QPushButton*>(QStringLiteral("Command6"))->click();
        auto users = db().openRecordset(QStringLiteral("select MinTradeSell from users"));
        QCOMPARE(users->field(0).toDouble(), 2500.0);
    }

    void theFrameOpensOneEquityManagerAndFollowsTheAdvicesRequests() {
        QVERIFY(prepareProgramFolder().isEmpty());
        addHolding(140, 0);                                        // no shares: the advice divides by 0
        db().execute(QStringLiteral("update users set QUICK=0"));  // no quick start screen
        MDIForm1View frame(*m_program);
        frame.show();
        frame.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&frame));
        // The frame starts on "Simulation": the user picks the portfolio and the code.
        frame.findChild<QComboBox*>(QStringLiteral("cmbportfolio"))->setCurrentText(QStringLiteral("Growth"));
        m_program->frame().cmbequity = QStringLiteral("INFY.NS");
        Screens& screens = m_program->module<Screens>();
        screens.show(QStringLiteral("equitymanager"));
        screens.show(QStringLiteral("equitymanager"));
        QCOMPARE(childNames(frame), (QStringList{"frmexplore", "equitymanager"}));
        auto* screen = frame.mdiArea()->activeSubWindow()->widget();

        m_prompt->answer(Answer::OK);
        screen->findChild<QPushButton*>(QStringLiteral("Command5"))->click();
        QCOMPARE(m_prompt->messages(),
                 QStringList{"You have either your Shareqty= 0 or the price = 0 for the stock INFY"});
        // The overview comes up in front of the equity manager.
        QCOMPARE(childNames(frame), (QStringList{"frmexplore", "equitymanager", "Portfolioexplorer"}));
        QCOMPARE(frame.mdiArea()->activeSubWindow()->widget()->objectName(), QStringLiteral("Portfolioexplorer"));

        // A code that has no holding in the portfolio: the frame's company box gets the focus.
        m_program->frame().cmbequity = QStringLiteral("TCS.NS");
        m_prompt->answer(Answer::OK);
        screen->findChild<QPushButton*>(QStringLiteral("Command5"))->click();
        QCOMPARE(m_prompt->messages().last(), QStringLiteral("Please select the stock available in your portfolio "));
        QTRY_VERIFY(frame.findChild<QComboBox*>(QStringLiteral("Cmbequityname"))->hasFocus());
    }

    void closingTheScreenUnloadsIt() {
        EquityManager& state = m_program->module<EquityManager>();
        {
            EquityManagerForm screen(*m_program);
            QVERIFY(state.loaded);
            state.lbladvise.caption = QStringLiteral("BUY");
        }
        QVERIFY(!state.loaded);
        QCOMPARE(state.lbladvise.caption, QString());
    }

private:
    Database& db() { return m_program->store().database(); }

    static QStringList childNames(MDIForm1View& frame) {
        QStringList names;
        for (QMdiSubWindow* sub : frame.mdiArea()->subWindowList()) names << sub->widget()->objectName();
        return names;
    }

    void addHolding(double price, int shares = 100) {
        db().execute(QStringLiteral("insert into portfolio (fkUserID, PortfolioName) values (1, 'Growth')"));
        db().execute(
            QStringLiteral("insert into equity (EquitySymbol, portname, CurrentQuotePrice, CurrentCash, CurrentShares, "
                           "PortControl, VealieFlag, OriginalPrice, OriginalShares, OriginalCash) "
                           "values ('INFY', 'Growth', %1, 5000, %2, 10000, 1, 100, 100, 4000)")
                .arg(price)
                .arg(shares));
        test::selectHolding(m_program->frame(), QStringLiteral("INFY"), QStringLiteral("Growth"));
    }

    static QString text(const QWidget& screen, const char* name) {
        return screen.findChild<QLineEdit*>(QString::fromLatin1(name))->text();
    }
    static QColor colour(const QWidget& screen, const char* name) {
        return screen.findChild<QLineEdit*>(QString::fromLatin1(name))->palette().color(QPalette::Text);
    }
};

QTEST_MAIN(EquityManagerScreenTest)
#include "equitymanager_screen_test.moc"
