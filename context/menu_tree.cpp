#include "context/menu_tree.h"

namespace ostravel {

namespace {

MenuItem item(const char* caption, const char* name, const char* shortcut, bool available) {
    return MenuItem{QString::fromUtf8(caption), QString::fromUtf8(name), QString::fromUtf8(shortcut), available, {}};
}

MenuItem menu(const char* caption, const char* name, QList<MenuItem> children) {
    return MenuItem{QString::fromUtf8(caption), QString::fromUtf8(name), {}, true, std::move(children)};
}

QList<MenuItem> buildTree() {
    return {
        menu("&File", "mnufile",
             {item("&Open File", "Openfile", "Ctrl+O", true), item("Get History All", "mnugethistory", "", true),
              item("&Import History...", "mnuimporthistory", "Ctrl+I", true), item("E&xit", "Exit", "", true)}),
        menu("&Edit", "mnuedit", {item("History of &Changes...", "mnuchanges", "", true)}),
        menu("&Portfolio", "mnuportfolio",
             {item("Portfolio &Manager", "portfoliomanager", "Ctrl+M", true),
              item("Create &New  Portfolio ", "createnewport", "Ctrl+N", true)}),
        menu("&Equity", "mnuequity",
             {item("&Add New Equity", "AddNewEquity", "Ctrl+E", true),
              item("View &Historical data", "ViewHistoricaldata", "Ctrl+H", true),
              item("&Update Prices Via Internet", "UpdatePricesViaInternet", "F5", true),
              item("Update Prices from &Day Files", "mnudayfileprices", "", true),
              item("Add &New Symbol", "mnynewsymbol", "", true),
              menu("&Cash Management", "mnucashmanagement",
                   {item("&Deposit Cash", "mnudepositcash", "", true), item("&Withdraw Cash", "Mnuwcash", "", true),
                    item("Add Interest or &Dividends", "addinterest", "", true)}),
              item("&Bank", "mnubank", "", true)}),
        menu("Technical Analysis", "mnutechnicalanalysis",
             {item("Tecnical Charts", "StockPriceChart", "Ctrl+T", true), item("50/200 DMA", "mnudmA", "", true)}),
        menu("T&ools", "mnutools",
             {item("User Preference", "UserPreferance", "Ctrl+Shift+U", true),
              item("Stock Split Adjust", "stocksplit", "", true),
              MenuItem{{}, QStringLiteral("mnuspace"), {}, true, {}}, item("Calc&ulator", "mnucalc", "Ctrl+L", true),
              item("BackUP Database", "mnu_backup", "Ctrl+B", true), item("Restore Database", "mnu_restore", "", true),
              item("Technical Date", "mnutechnical", "", true), item("Proxy Settings...", "mnuproxy", "", true),
              item("&Navigator", "mnunavigator", "Ctrl+Shift+N", true)}),
        menu("&Reports", "mnureports",
             {item("Portfolio Details", "mnuallportfolio", "Ctrl+P", true),
              item("Historical Data", "mnuhistory", "", true)}),
        menu("He&lp", "mnuhelp",
             {item("Help", "Helpchm", "F1", true), item("Online Help", "Helpfile", "", true),
              item("Report Bug", "mnuBug", "", true), item("Keyboard Help", "mnykbhelp", "Ctrl+F1", true)}),
    };
}

const QList<MenuItem>& tree() {
    static const QList<MenuItem> t = buildTree();
    return t;
}

void collectShortcuts(const QList<MenuItem>& items, QList<MenuItem>& out) {
    for (const MenuItem& m : items) {
        if (!m.shortcut.isEmpty())
            out << m;
        collectShortcuts(m.children, out);
    }
}

}  // namespace

const QList<MenuItem>& menuTree() {
    return tree();
}

QList<MenuItem> menuShortcuts() {
    QList<MenuItem> out;
    collectShortcuts(tree(), out);
    return out;
}

}  // namespace ostravel
