#include "app/screen_openers.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTimer>
#include <functional>

#include "app/mdiform1_view.h"
#include "app/quick_view.h"
#include "charts/ui/frmmain_view.h"
#include "context/program.h"
#include "context/screens.h"
#include "ledger/frmsplit.h"
#include "ledger/ledger_requests.h"
#include "ledger/ui/addremovecash_view.h"
#include "ledger/ui/create_view.h"
#include "ledger/ui/frmjournal_view.h"
#include "ledger/ui/frmnewsymbol_view.h"
#include "ledger/ui/frmportwizard_view.h"
#include "ledger/ui/frmsplit_view.h"
#include "ledger/ui/newholding_view.h"
#include "ledger/ui/portfolioexplorer_view.h"
#include "ledger/ui/trade_view.h"
#include "market/frmbrowser.h"
#include "market/price_update.h"
#include "market/ui/frmbrowser_view.h"
#include "market/ui/frmdma_view.h"
#include "market/ui/technical_view.h"
#include "position/advice.h"
#include "position/ui/equitymanager_view.h"
#include "position/ui/setting_view.h"
#include "position/ui/websetting_view.h"
#include "simulation/ui/frmtradehistory_view.h"
#include "simulation/ui/results_view.h"
#include "simulation/ui/simulation_actions.h"

namespace ostravel {

void registerScreenOpeners(MDIForm1View& frame, Program& program) {
    Screens& screens = program.module<Screens>();
    // Modal screens open over whatever modal screen asked for them (the deposit over trade).
    const auto modalParent = [&frame]() -> QWidget* {
        QWidget* modal = QApplication::activeModalWidget();
        return modal ? modal : &frame;
    };

    // Portfolios and holdings: Create, frmjournal, frmportwizard, Newholding, frmnewsymbol. The
    // two wizards and the history of changes are modal; the portfolio manager is a child
    // window, and the symbol form a window of its own beside the frame.
    screens.setOpener(QStringLiteral("Create"), [modalParent, &frame, &program] {
        {
            Create dialog(program, modalParent());
            dialog.exec();
        }
        frame.refresh();
    });
    screens.setOpener(QStringLiteral("Newholding"), [modalParent, &frame, &program] {
        {
            NewHoldingForm dialog(program, modalParent());
            dialog.exec();
        }
        frame.refresh();
    });
    screens.setOpener(QStringLiteral("frmjournal"), [modalParent, &frame, &program] {
        {
            FrmJournalForm dialog(program, modalParent());
            dialog.exec();
        }
        frame.refresh();
    });
    screens.setOpener(QStringLiteral("frmportwizard"), [&frame, &program] {
        frame.showSingleChild(QStringLiteral("frmportwizard"), [&program] { return new frmportwizard(program); });
    });
    screens.setOpener(QStringLiteral("frmnewsymbol"), [&frame, &program] {
        auto* open = frame.findChild<frmnewsymbol*>(QStringLiteral("frmnewsymbol"));
        if (!open) {
            open = new frmnewsymbol(program, &frame);
            open->setAttribute(Qt::WA_DeleteOnClose);
        }
        open->show();
        open->raise();
        open->activateWindow();
    });

    // Trades, cash and splits: trade, addremovecash, frmsplit, each modal.
    screens.setOpener(QStringLiteral("trade"), [modalParent, &program] {
        TradeForm dialog(program, modalParent());
        dialog.exec();
    });
    screens.setOpener(QStringLiteral("addremovecash"), [modalParent, &program] {
        AddRemoveCashForm dialog(program, modalParent());
        dialog.exec();
    });
    screens.setOpener(QStringLiteral("frmsplit"), [modalParent, &frame, &program] {
        {
            FrmSplitForm dialog(program, modalParent());
            dialog.exec();
        }
        // A refusal sends the user to the main frame's choice that was missing.
        FrmSplit& split = program.module<FrmSplit>();
        if (!split.frameFocus.isEmpty()) {
            if (auto* control = frame.findChild<QWidget*>(split.frameFocus))
                control->setFocus();
            split.frameFocus.clear();
        }
    });

    // The equity manager and the settings dialogs: equitymanager, Portfolioexplorer (which the
    // advice asks for), setting.
    // The equity manager mirrors its state again once the procedure that asked for it has
    // finished writing there.
    // The frame puts the simulation's results beside its narrative on the equity manager.
    screens.setOpener(QStringLiteral("equitymanager"), [&frame, &program] {
        auto* screen =
            static_cast<EquityManagerForm*>(frame.showSingleChild(QStringLiteral("equitymanager"), [&program] {
                auto* made = new EquityManagerForm(program);
                made->addSimulationPage(new SimulationResultsView(program), QStringLiteral("Results"));
                return made;
            }));
        screen->refresh();
        QTimer::singleShot(0, screen, &EquityManagerForm::refresh);
    });
    screens.setOpener(QStringLiteral("Portfolioexplorer"), [&frame, &program] {
        frame.showSingleChild(QStringLiteral("Portfolioexplorer"),
                              [&program] { return new PortfolioExplorerForm(program); });
    });
    screens.setOpener(QStringLiteral("websetting"), [&frame, &program] {
        WebSettingForm dialog(program, &frame);
        dialog.exec();
    });
    screens.setOpener(QStringLiteral("setting"), [&frame, &program] {
        SettingForm dialog(program, &frame);
        dialog.exec();
    });
    // The chart: a new window on the stock in work each time; the one open before goes. Its
    // history loads once the window shows.
    screens.setOpener(QStringLiteral("frmMain"), [&frame, &program] {
        for (QMdiSubWindow* sub : frame.mdiArea()->subWindowList())
            if (sub->widget() && sub->widget()->objectName() == QLatin1String("frmMain"))
                sub->close();
        auto* chart = new FrmMainForm(program, [&frame] { frame.action(QStringLiteral("Exit"))->trigger(); });
        frame.showChild(chart);
        QTimer::singleShot(0, chart, &FrmMainForm::loadHistory);
    });
    installLedgerRequests(program);
    installSimulationRequests(program, &frame);
    screens.setOpener(QStringLiteral("frmtradehistory"), [&frame, &program] {
        frame.showSingleChild(QStringLiteral("frmtradehistory"), [&program] { return new TradeHistoryForm(program); });
    });

    // The screeners of market data, each one window: frmdma loads its quotes as it opens.
    screens.setOpener(QStringLiteral("frmdma"), [&frame, &program] {
        bool made = false;
        auto* screen = static_cast<FrmDmaForm*>(frame.showSingleChild(QStringLiteral("frmdma"), [&] {
            made = true;
            return new FrmDmaForm(program);
        }));
        if (made)
            screen->load();
    });
    screens.setOpener(QStringLiteral("Technical"), [&frame, &program] {
        frame.showSingleChild(QStringLiteral("Technical"), [&program] { return new TechnicalForm(program); });
    });
    installPriceUpdate(program);

    // The navigator's pages, in frmBrowser beside it, and the quick start it can show.
    screens.setOpener(QStringLiteral("frmBrowser"), [&frame, &program] {
        showBrowser(program, [&frame](const std::function<QWidget*()>& make) {
            return frame.showSingleChild(QStringLiteral("frmBrowser"), make);
        });
    });
    program.module<FrmBrowser>().showNavigator = [&frame](bool visible) { frame.showNavigator(visible); };
    screens.setOpener(QStringLiteral("quick"), [&frame, &program] { frame.showChild(new quick(program)); });
    AdviceValues& advice = program.module<AdviceValues>();
    advice.showPortfolioexplorer = [&screens] { screens.show(QStringLiteral("Portfolioexplorer")); };
    advice.focusCmbequityname = [&frame] {
        if (auto* name = frame.findChild<QComboBox*>(QStringLiteral("Cmbequityname")))
            name->setFocus();
    };
}

}  // namespace ostravel
