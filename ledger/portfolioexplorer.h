// Portfolioexplorer as state: the overview of one portfolio, with a line for each holding and a
// total, the grid of market figures, the portfolio's symbols and the recommendation line.
#pragma once

#include <QObject>
#include <QString>
#include <functional>

#include "context/gridformat.h"
#include "context/mainframe.h"

namespace ostravel {

class Program;

class PortfolioExplorer : public QObject {
    Q_OBJECT
public:
    static inline const QString kGrid1Format =
        QStringLiteral("^Nos|^Symbol|^Shares|^Price|^Cash|^Commission|^Stock Value|^Profit/Loss");
    static inline const QString kGrid2Format =
        QStringLiteral("^Symbol|^50 Day's DMA|^200 Day's DMA|^Avg Volume|^Volume");
    // The grid before the first selectportfolio: one heading fewer, every column 1500 wide.
    static inline const QString kDefaultGridFormat =
        QStringLiteral("^Nos|^Symbol|^Shares|^Price|^Cash|^Stock Value|^Profit/Loss");
    static constexpr int kDefaultColWidth = 1500;
    static constexpr int kStartRows = 2;
    static constexpr int kGrid1Cols = 8;
    static constexpr int kGrid2Cols = 5;
    static inline const QList<int> kGrid1Widths = {1400, 800, 1300, 1300, 1300, 1300, 1500};  // columns 1 to 7
    static inline const QList<int> kGrid2Widths = {1500, 1600, 1600, 1600, 1600};             // columns 0 to 4
    static constexpr int kAdviseWidth = 5000;
    static constexpr int kAdviseInterval = 50000;  // milliseconds the recommendation stays

    static inline const QString kNoAdvise = QStringLiteral(" No Advise Created , Kindly Run the Get Advise");

    struct AdviseLabel {
        QString caption;
        bool visible = false;
        int width = kAdviseWidth;  // twips
    };
    struct Timer {
        int interval = 0;
        bool enabled = false;
    };
    struct Button {
        QString caption;
        QString toolTip;
        bool enabled = true;
    };

    explicit PortfolioExplorer(Program& program);

    FlexGridData MSFlexGrid1{kStartRows, kGrid1Cols};
    FlexGridData MSFlexGrid2{kStartRows, kGrid2Cols};
    ComboState cmbequity;  // the portfolio's symbols
    AdviseLabel lbladvise;
    Timer Timer1;

    Button Command1{QStringLiteral("Get Advise"), QStringLiteral("Click to get advise on this Holding")};
    Button cmdadd{QStringLiteral("Add New Holding"), QStringLiteral("Add New Holding to the portfolio")};
    // The price update is market data's: its button waits disabled until that sets the hook.
    Button cmdupdate{QStringLiteral("Update All Prices"), QStringLiteral("Update price via Internet or Manual"), false};
    std::function<void()> updateAllPrices;
    Button cmdcreate{QStringLiteral("Create Portfolio"), {}};

    // The click on a line of the overview (row 0 is the heading): its symbol becomes the
    // selection, and the recommendation stored for it shows for 50 seconds.
    void MSFlexGrid1_Click(int row);
    // A double click on a holding's line: its symbol becomes the selection and the trade screen
    // opens, modally, on the line's price. The heading and the total line open nothing.
    void MSFlexGrid1_DblClick(int row);
    // The recommendation's time is up.
    void Timer1_Timer();

    enum class AdviseStart { ChoosePortfolio, Advised };
    // "Get Advise": equitymanager set up for the symbol of cmbequity and shown, then advise.
    // Under "Simulation" the user is sent to choose a portfolio instead.
    AdviseStart Command1_Click();
    // "Add New Holding": the holding wizard on the current portfolio, or, while no portfolio
    // exists, the portfolio wizard with a word why.
    void cmdadd_Click();
    // "Create Portfolio": the portfolio wizard.
    void cmdcreate_Click();

    // Tells the screen that shows this state to mirror it again.
    void notifyChanged() { Q_EMIT changed(); }

Q_SIGNALS:
    void changed();

private:
    Program& m_program;
};

// Fills Portfolioexplorer for the main frame's portfolio: a line per holding with its profit
// after commission, the total line last, and the market figures of each holding.
void selectportfolio(Program& program);

}  // namespace ostravel
