// The dialog websetting ("Configuration Setting"): every column of the users row on three tabs.
#pragma once

#include <functional>

#include "context/controls.h"

namespace ostravel {

class Program;

class WebSetting {
public:
    // SSTab1's tabs.
    static constexpr int kPositionTab = 0;
    static constexpr int kServiceTab = 1;
    static constexpr int kUserTab = 2;

    static inline const QString kInternet = QStringLiteral("Internet");
    static inline const QString kUserEntry = QStringLiteral("User Entry");

    explicit WebSetting(Program& program);

    int currentTab = kPositionTab;  // SSTab1.Tab

    // Tab 0, "Position Management setting": the boxes of users' positions 5 to 12 and 23.
    TextBox txtmsell;    // 5 MinTradeSell
    TextBox txtmbuy;     // 6 MinTradeBuy
    TextBox txtmtbuy;    // 7 MinTradeBuySh
    TextBox txtmtsell;   // 8 MinTradeSellSh
    TextBox txtfeebuy;   // 9 BuyFee
    TextBox txtfeesell;  // 10 SellFee
    TextBox txtbuyres;   // 11 ResistBuy
    TextBox txtsellres;  // 12 ResistSell
    TextBox txtbshares;  // 23 BeginningShares
    TextBox txtcashper;  // "Cash(Recommended 50%)": bound to no column

    // Tab 1, "Quote and History Service".
    ComboBox cmbgqs;  // QuoteDL
    ComboBox cmbhs;   // HistoryDL
    ComboBox Combo3;  // SecondsForQuote, items "1" to "200"

    // Tab 2, "User Information".
    TextBox txtlastname;
    TextBox txtfirstname;
    TextBox txtemail;
    int Check2 = 0;  // QUICK: 1 checked, 0 not

    // The widget closes itself when the dialog unloads (OK, Cancel, Escape).
    std::function<void()> unload;

    void Form_Load();
    // Saves all three tabs (QUICK excepted) and unloads.
    void cmdok_Click();
    // Saves the open tab alone; tab 0 with its columns from BuyFee on taken one box further on.
    void cmdapply_Click();
    void cmdCancel_Click();

private:
    Program& m_program;
};

// Reopens the store, then fills websetting's boxes from users.
void userpreference(Program& program);

}  // namespace ostravel
