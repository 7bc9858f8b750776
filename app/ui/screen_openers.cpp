#include "app/ui/screen_openers.h"

#include "app/program.h"
#include "app/screens.h"
#include "app/ui/mdiform1_view.h"
#include "ledger/frmsplit.h"
#include "ledger/ui/addremovecash_view.h"
#include "ledger/ui/create_view.h"
#include "ledger/ui/frmnewsymbol_view.h"
#include "ledger/ui/frmportwizard_view.h"
#include "ledger/ui/frmsplit_view.h"
#include "ledger/ui/newholding_view.h"
#include "ledger/ui/portfolioexplorer_view.h"
#include "ledger/ui/trade_view.h"
#include "position/advice.h"
#include "position/ui/equitymanager_view.h"
#include "position/ui/setting_view.h"

#include <QApplication>
#include <QComboBox>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTimer>
#include <functional>

namespace ostravel {

void registerScreenOpeners(MDIForm1View& frame, Program& program) {
    Screens& screens = program.module<Screens>();
    (void)frame;
    (void)screens;
    // Portfolios and holdings: Create, frmportwizard, Newholding, frmnewsymbol. The two
    // wizards are modal, over whatever modal screen asked for them; the portfolio manager is a
    // child window, and the symbol form a window of its own beside the frame.
    const auto wizardParent = [&frame]() -> QWidget* {
        QWidget* modal = QApplication::activeModalWidget();
        return modal ? modal : &frame;
    };
    screens.setOpener(QStringLiteral("Create"), [wizardParent, &frame, &program] {
        {
            Create dialog(program, wizardParent());
            dialog.exec();
        }
        frame.refresh();
    });
    screens.setOpener(QStringLiteral("Newholding"), [wizardParent, &frame, &program] {
        {
            Newholding dialog(program, wizardParent());
            dialog.exec();
        }
        frame.refresh();
    });
    screens.setOpener(QStringLiteral("frmportwizard"), [&frame, &program] {
        for (QMdiSubWindow* sub : frame.mdiArea()->subWindowList()) {
            if (sub->widget() && sub->widget()->objectName() == QStringLiteral("frmportwizard")) {
                frame.mdiArea()->setActiveSubWindow(sub);
                return;
            }
        }
        frame.showChild(new frmportwizard(program));
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

    // Trades, cash and splits: trade, addremovecash, frmsplit. Each is modal, over whatever
    // modal screen asked for it (the deposit opens over trade).
    const auto modalParent = [&frame]() -> QWidget* {
        QWidget* modal = QApplication::activeModalWidget();
        return modal ? modal : &frame;
    };
    screens.setOpener(QStringLiteral("trade"), [modalParent, &program] {
        trade dialog(program, modalParent());
        dialog.exec();
    });
    screens.setOpener(QStringLiteral("addremovecash"), [modalParent, &program] {
        addremovecash dialog(program, modalParent());
        dialog.exec();
    });
    screens.setOpener(QStringLiteral("frmsplit"), [modalParent, &frame, &program] {
        {
            frmsplit dialog(program, modalParent());
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
    // A child screen is one window: an open one comes to the front, and mirrors its state once
    // the procedure that asked for it has finished writing there.
    const auto showOnce = [&frame](const QString& name, const std::function<QWidget*()>& make) {
        QWidget* screen = nullptr;
        for (QMdiSubWindow* sub : frame.mdiArea()->subWindowList()) {
            if (sub->widget() && sub->widget()->objectName() == name) {
                frame.mdiArea()->setActiveSubWindow(sub);
                screen = sub->widget();
            }
        }
        if (!screen) {
            screen = make();
            frame.showChild(screen);
        }
        return screen;
    };
    screens.setOpener(QStringLiteral("equitymanager"), [showOnce, &program] {
        auto* screen = static_cast<equitymanager*>(
            showOnce(QStringLiteral("equitymanager"), [&program] { return new equitymanager(program); }));
        screen->refresh();
        QTimer::singleShot(0, screen, &equitymanager::refresh);
    });
    screens.setOpener(QStringLiteral("Portfolioexplorer"), [showOnce, &program] {
        showOnce(QStringLiteral("Portfolioexplorer"), [&program] { return new Portfolioexplorer(program); });
    });
    screens.setOpener(QStringLiteral("setting"), [&frame, &program] {
        setting dialog(program, &frame);
        dialog.exec();
    });
    AdviceValues& advice = program.module<AdviceValues>();
    advice.showPortfolioexplorer = [&screens] { screens.show(QStringLiteral("Portfolioexplorer")); };
    advice.focusCmbequityname = [&frame] {
        if (auto* name = frame.findChild<QComboBox*>(QStringLiteral("Cmbequityname")))
            name->setFocus();
    };
}

}  // namespace ostravel
