// The screen equitymanager as state: the working surface of one holding. The advice rule
// writes its figures here, and the simulation reads its own figures back from here as text.
#pragma once

#include "context/controls.h"

namespace ostravel {

class Program;

struct AdviceLabel {
    QString caption;
    // Set through the label's Font, whose default property is the name: the buy branch puts
    // the text "24" there.
    QString fontName = QStringLiteral("MS Sans Serif");
};

class EquityManager {
public:
    static inline const QString kCaption = QStringLiteral("Equity Manager");
    static inline const QString kDaily = QStringLiteral("Daily");
    static inline const QString kWeekly = QStringLiteral("Weekly");
    static inline const QString kMonthly = QStringLiteral("Monthly");
    static inline const QString kRecommendedTrade = QStringLiteral("Recommended Trade");
    static inline const QString kActualTrade = QStringLiteral("Actual Trade");

    QString caption = kCaption;
    bool loaded = false;  // Form_Load has run; Unload clears it with everything else

    // Beginning position.
    TextBox txtbegprice, txtbegshare, txtbegcash, txtbegstockvalue, txtbegtotal, txtbegcps;
    // "Current Position Summary", Frame2(1).
    TextBox txtcurrprice, txtcurrshare, txtcurrcash, txtcurrstockvalue, txtcurrtotal, txtcurrcps;
    TextBox txtcashper, txtsvper, txtcashrisk;
    bool Frame2_1BesideFrame1 = false;  // moved to the right of Frame1 for a simulation

    // "Position Management Setting", Frame2(0).
    bool Frame2_0Visible = true;
    TextBox txtmtbuy, txtmtsell;            // "Min Trade Amount"
    TextBox txtmstradebuy, txtmstradesell;  // "Min. Share to Trade"
    TextBox txtfeebuy, txtfeesell;          // "Broker Commission (%)"
    TextBox txtbuyres, txtsellres;          // "Resistance(Default 10%)"
    TextBox txtbegincash;                   // "Beginning Cash"
    Button Command6{QStringLiteral("Save Setting")};

    // "Current Trade Advise". The names of the next-trade boxes say otherwise: txtnextsell and
    // txtnextbuy hold shares, txtnextsellshare and txtnextbuyshare prices.
    AdviceLabel lbladvise;
    TextBox txtnextsellamount, txtnextsell, txtnextsellshare;
    TextBox txtnextbuyamount, txtnextbuy, txtnextbuyshare;
    Label Label17_2{kRecommendedTrade};  // Label17(2), the heading of the advice
    Label lblsell, lblbuy;               // sellcount, buycount
    bool Frame4Visible = false;
    Button cmdaddtrade{QStringLiteral("Add Trade")};
    Button Command5{QStringLiteral("Recalculate")};

    // "Trade History": the period and the run of a simulation. Dates as day serials.
    double dtbdate = 0;
    double dtedate = 0;
    ComboBox Combo1;
    Button Command3{QStringLiteral("Run Simulation"), false};  // on under "Simulation" only
    Label lblsimulation;

    // Results of a simulation, and of pcaresult after an advice.
    Label lblpcaresult, lblpcaresultper, lblpcaprofit, lblbhprofit, lblbhpersentage;

    // Load without showing: runs Form_Load once, as the first reference to the form does.
    void load();
    // Unload: the controls go back to their design values.
    void unload();

    // Today less 365 days to today, and the three sampling choices.
    void Form_Load();
    // "Weekly" and "Monthly" move the begin date back from the end date; "Daily" leaves it.
    void Combo1_Click();
    // The six next-trade boxes go white, the colour that means "no trade now".
    void clearcolor();
};

// Fills the beginning and current position from the holding of the main frame's selection.
void goequitymanager(Program& program);
// Copies the rule's nine settings from users into the screen's boxes.
void loadusersetting(Program& program);
// "Save Setting": the nine boxes into users; a box the store can't take is logged and the
// others are still written. The advice isn't recomputed.
void Command6_Click(Program& program);

}  // namespace ostravel
