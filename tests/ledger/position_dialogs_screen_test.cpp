#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>

#include "position/frmmodel.h"
#include "position/setting.h"
#include "position/ui/frmmodel_view.h"
#include "position/ui/setting_view.h"
#include "position/ui/websetting_view.h"
#include "tests/ledger/holdings.h"
#include "tests/support/program_screen_test.h"
#include "tests/support/selection.h"

using namespace ostravel;

namespace {

const QString kPortfolio = QStringLiteral("Growth");

QStringList labelTexts(const QWidget& dialog) {
    QStringList texts;
    for (const QLabel* label : dialog.findChildren<QLabel*>()) texts << label->text();
    return texts;
}

// Types the text into the dialog's box over what it held.
void typeInto(QWidget& dialog, const char* box, const char* text) {
    auto* edit = dialog.findChild<QLineEdit*>(QString::fromLatin1(box));
    edit->clear();
    QTest::keyClicks(edit, QString::fromUtf8(text));
}

}  // namespace

class PositionDialogsScreenTest : public test::ProgramScreenTest {
    Q_OBJECT
private Q_SLOTS:
    void init() {
        QVERIFY(openProgram());
        Database& db = m_program->store().database();
        addPortfolio(db, kPortfolio);
        addHolding(db, kPortfolio, {QStringLiteral("INFY"), 100, 10, 1000, 10, 120, 1000});
        addTrade(db, kPortfolio, QStringLiteral("INFY"), 5);  // 10 shares at 100
        test::selectHolding(m_program->frame(), QStringLiteral("INFY"), kPortfolio);
    }
    void cleanup() { closeProgram(); }

    void settingShowsItsCaptionsAndProposesTheCash() {
        m_program->module<Setting>().caption = QStringLiteral("Setting for INFY");
        SettingForm dialog(*m_program);
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Setting for INFY"));
        QCOMPARE(dialog.findChild<QGroupBox*>(QStringLiteral("Frame1"))->title(),
                 QStringLiteral("Position Management Setting"));
        const QStringList labels = labelTexts(dialog);
        for (const char* text : {"Min Trades Rs.", "Min Trades shares", "Beginning Cash ", "Advanced Buy Resistance",
                                 "Advanced Sell Resistance", "Buy", "Sell"})
            QVERIFY2(labels.contains(QString::fromUtf8(text)), text);
        // Two thirds of the 1000 traded.
        QCOMPARE(dialog.findChild<QLineEdit*>(QStringLiteral("txtbcash"))->text().left(6), QStringLiteral("666.66"));
    }

    void numericBoxesTakeDigitsAndPointsOnly() {
        SettingForm dialog(*m_program);
        WebSettingForm web(*m_program);
        struct Case {
            QWidget* dialog;
            const char* box;
            const char* typed;
            const char* kept;
        };
        const Case cases[] = {
            {&dialog, "txtmbuy", "12a-3.5", "123.5"},
            {&dialog, "txtsellres", "1.2.3x", "1.2.3"},
            {&web, "txtfeebuy", "0,85", "085"},
            {&web, "txtlastname", "O'Neil 2", "O'Neil 2"},  // names are not numbers
        };
        for (const Case& c : cases) {
            auto* box = c.dialog->findChild<QLineEdit*>(QString::fromLatin1(c.box));
            QVERIFY2(box, c.box);
            box->clear();
            QTest::keyClicks(box, QString::fromUtf8(c.typed));
            QCOMPARE(box->text(), QString::fromUtf8(c.kept));
        }
    }

    void settingOkWritesTheRuleForAllHoldingsAndCloses() {
        SettingForm dialog(*m_program);
        dialog.show();
        // The boxes open empty, and an empty one can't go to a number column: all are filled.
        typeInto(dialog, "txtmsell", "1500");
        typeInto(dialog, "txtmbuy", "2500");
        typeInto(dialog, "txtmtbuy", "2");
        typeInto(dialog, "txtmtsell", "3");
        typeInto(dialog, "txtbuyres", "12");
        typeInto(dialog, "txtsellres", "11");
        typeInto(dialog, "txtbcash", "750");
        dialog.findChild<QPushButton*>(QStringLiteral("cmdok"))->click();
        QVERIFY(!dialog.isVisible());
        Recordset& users = *m_program->store().users;
        QCOMPARE(users.field(QStringLiteral("MinTradeBuy")).toDouble(), 2500.0);
        QCOMPARE(users.field(QStringLiteral("MinTradeSell")).toDouble(), 1500.0);
        QCOMPARE(users.field(QStringLiteral("MinTradeSellSh")).toDouble(), 3.0);
        QCOMPARE(users.field(QStringLiteral("ResistBuy")).toDouble(), 12.0);
        auto holding = m_program->store().database().openRecordset(
            QStringLiteral("select CurrentCash, OriginalCash from equity where EquitySymbol='INFY'"));
        QCOMPARE(holding->field(0).toDouble(), 750.0);
        QCOMPARE(holding->field(1).toDouble(), 750.0);
        QVERIFY(m_prompt->asked().isEmpty());
    }

    void websettingShowsItsTabsCaptionsAndTips() {
        WebSettingForm dialog(*m_program);
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Configuration Setting"));
        auto* tabs = dialog.findChild<QTabWidget*>(QStringLiteral("SSTab1"));
        QCOMPARE(tabs->count(), 3);
        QCOMPARE(tabs->tabText(0), QStringLiteral("Position Management setting"));
        QCOMPARE(tabs->tabText(1), QStringLiteral("Quote and History Service"));
        QCOMPARE(tabs->tabText(2), QStringLiteral("User Information"));
        QCOMPARE(tabs->currentIndex(), 0);

        const QStringList labels = labelTexts(dialog);
        for (const char* text :
             {"  Sell", "   Buy", "Min Trade Rs.", "Min share for trade", "Broker Comission( In %)", "Resistance(10%)",
              "Cash(Recommended 50%)", "Begining Shares", "Genral Qoute Services", "History Service",
              "Seconds Allowed for Qoute", "User Last Name", "User First name", "User Email Address"})
            QVERIFY2(labels.contains(QString::fromUtf8(text)), text);
        QCOMPARE(dialog.findChild<QCheckBox*>(QStringLiteral("Check2"))->text(),
                 QStringLiteral("Show Quick Start Screen at startup"));

        struct Tip {
            const char* combo;
            const char* tip;
        };
        for (const Tip& t : {Tip{"Combo3", "Increase ot Decrease the time form getting history"},
                             Tip{"cmbhs", "Select the source of the history price"},
                             Tip{"cmbgqs", "Select the source of the Current Price "}})
            QCOMPARE(dialog.findChild<QComboBox*>(QString::fromLatin1(t.combo))->toolTip(), QString::fromUtf8(t.tip));
        QCOMPARE(dialog.findChild<QComboBox*>(QStringLiteral("Combo3"))->count(), 200);
        QCOMPARE(dialog.findChild<QComboBox*>(QStringLiteral("cmbgqs"))->currentText(), QStringLiteral("Internet"));
        QCOMPARE(dialog.findChild<QLineEdit*>(QStringLiteral("txtmbuy"))->text(), QStringLiteral("1000"));

        for (const char* name : {"cmdok", "cmdCancel", "cmdapply"})
            QVERIFY2(dialog.findChild<QPushButton*>(QString::fromLatin1(name)), name);
        QCOMPARE(dialog.findChild<QPushButton*>(QStringLiteral("cmdCancel"))->text(), QStringLiteral("Cancel"));
        QCOMPARE(dialog.findChild<QPushButton*>(QStringLiteral("cmdapply"))->text(), QStringLiteral("Apply"));
    }

    void websettingApplyAndOkWriteDifferentColumns() {
        struct Case {
            const char* button;
            double buyFee;
            double resistSell;
            bool closes;
        };
        // Apply on the first tab takes each column from BuyFee on from the box before its own.
        const Case cases[] = {{"cmdapply", 2000, 7, false}, {"cmdok", 0.5, 9, true}};
        for (const Case& c : cases) {
            WebSettingForm dialog(*m_program);
            dialog.show();
            typeInto(dialog, "txtmbuy", "2000");
            typeInto(dialog, "txtfeebuy", "0.5");
            typeInto(dialog, "txtbuyres", "7");
            typeInto(dialog, "txtsellres", "9");
            // The new users row has no SecondsForQuote, and OK can't write an empty one.
            dialog.findChild<QComboBox*>(QStringLiteral("Combo3"))->setCurrentText(QStringLiteral("30"));
            dialog.findChild<QPushButton*>(QString::fromLatin1(c.button))->click();
            Recordset& users = *m_program->store().users;
            QCOMPARE(users.field(QStringLiteral("BuyFee")).toDouble(), c.buyFee);
            QCOMPARE(users.field(QStringLiteral("ResistSell")).toDouble(), c.resistSell);
            QCOMPARE(dialog.isVisible(), !c.closes);
            QVERIFY(m_prompt->asked().isEmpty());
        }
    }

    void websettingEscapeAndCancelClose() {
        for (const bool escape : {true, false}) {
            WebSettingForm dialog(*m_program);
            dialog.show();
            QVERIFY(dialog.isVisible());
            if (escape)
                QTest::keyClick(&dialog, Qt::Key_Escape);
            else
                dialog.findChild<QPushButton*>(QStringLiteral("cmdCancel"))->click();
            QVERIFY(!dialog.isVisible());
        }
        QVERIFY(m_prompt->asked().isEmpty());
    }

    void frmmodelOffersThreeModelsAndSuffixesTheName() {
        bool newholding = false;
        m_program->module<FrmModel>().showNewholding = [&] { newholding = true; };
        FrmModelForm dialog(*m_program, kPortfolio);
        dialog.show();
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Model"));
        QCOMPARE(dialog.findChild<QGroupBox*>(QStringLiteral("Frame1"))->title(), QStringLiteral("Select Model"));
        const QStringList labels = labelTexts(dialog);
        const char* models[][2] = {{"Default", "Halvard Torne Standard Vealie  is disabled"},
                                   {"Bullish", "33% Cash Vealie is enabled"},
                                   {"Conservative", "50% Cash Start Vealie  is enabled"}};
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(dialog.findChild<QRadioButton*>(QStringLiteral("Option1_%1").arg(i))->text(),
                     QString::fromUtf8(models[i][0]));
            QVERIFY(labels.contains(QString::fromUtf8(models[i][1])));
        }
        auto* next = dialog.findChild<QPushButton*>(QStringLiteral("ModelNextButton"));
        QCOMPARE(next->text(), QStringLiteral("Next"));

        dialog.findChild<QRadioButton*>(QStringLiteral("Option1_1"))->setChecked(true);
        next->click();
        QVERIFY(!dialog.isVisible());
        QVERIFY(newholding);
        auto names = m_program->store().database().openRecordset(QStringLiteral("select PortfolioName from portfolio"));
        QCOMPARE(names->field(0).toString(), QStringLiteral("Growth-B"));
    }

    void frmmodelEscapeGoesBackToCreate() {
        bool create = false;
        m_program->module<FrmModel>().showCreate = [&] { create = true; };
        FrmModelForm dialog(*m_program, kPortfolio);
        dialog.show();
        QTest::keyClick(&dialog, Qt::Key_Escape);
        QVERIFY(!dialog.isVisible());
        QVERIFY(create);
    }
};

QTEST_MAIN(PositionDialogsScreenTest)
#include "position_dialogs_screen_test.moc"
