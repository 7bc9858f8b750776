#include "market/frmbrowser.h"

#include "context/program.h"
#include "context/screens.h"
#include "market/navigator_pages.h"
#include "runtime/prompt.h"

namespace ostravel {

void FrmBrowser::StartingAddress(const QString& url) {
    startingAddress = url;
    addAddress(url);
}

void FrmBrowser::addAddress(const QString& url) {
    if (!url.isEmpty() && !cboAddress.contains(url))
        cboAddress << url;
}

void FrmBrowser::Command1_Click() {
    const bool hide = Command1 == kNavHide;
    Command1 = hide ? kNavShow : kNavHide;
    if (showNavigator)
        showNavigator(!hide);
}

void FrmBrowser::Form_Unload() {
    if (Command1 == kNavShow)
        Command1_Click();
}

QString browserHome(Program& program) {
    const NavAction home = sitePage(QStringLiteral("/"));
    if (home.url.isEmpty())
        program.prompt().inform(home.message);
    return home.url;
}

void openBrowser(Program& program, const QString& url) {
    program.module<FrmBrowser>().StartingAddress(url);
    program.module<Screens>().show(QStringLiteral("frmBrowser"));
}

bool builtInViewCanRun(bool root, const QByteArray& engineFlags, bool sandboxSwitchedOff) {
    return !root || sandboxSwitchedOff || engineFlags.split(' ').contains("--no-sandbox");
}

}  // namespace ostravel
