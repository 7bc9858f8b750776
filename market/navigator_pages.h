// The navigator's table: the side bar's groups and items, and for each caption the page it
// opens (its endpoint, path and query) or the screen it shows, with the status bar's label.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>

namespace ostravel {

class Program;

struct NavGroup {
    QString caption;
    QStringList items;
};

// The groups of frmexplore's bar, each with its items, in the bar's order.
const QList<NavGroup>& navigatorGroups();

// The working values of one click, from the stock in work.
struct NavValues {
    QString Sym;      // cmbequity without ".NS"
    QString BseCode;  // qoutense.yahoonse of Sym
    QString Sym6;     // the first six characters of Sym
};

// What a caption does. Exactly one of run, url and message is set; an unknown caption sets none.
struct NavAction {
    std::function<void(Program&)> run;  // a screen or procedure of the program
    QString url;                        // a page for frmBrowser
    QString message;                    // told instead: no such page for the stock, or no host set
    QString label;                      // status bar panel 6; empty leaves it
    bool known() const { return run || !url.isEmpty() || !message.isEmpty(); }
};

// The action for a caption, compared exactly; hosts come from hosts.ini as it is now.
NavAction navAction(const QString& caption, const NavValues& values);

// A page of the program's own site, by its path.
NavAction sitePage(const QString& path);

}  // namespace ostravel
