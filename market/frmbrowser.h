// The web view frmBrowser as state: the address it starts at, the addresses visited, and the
// button that hides and shows the navigator beside it.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <functional>

namespace ostravel {

class Program;

class FrmBrowser {
public:
    static inline const QString kNavHide = QStringLiteral("Nav Hide");
    static inline const QString kNavShow = QStringLiteral("Nav Show");

    QString startingAddress;
    QStringList cboAddress;  // each address visited, once, in order
    QString Command1 = kNavHide;

    // Shows or hides frmexplore; set by the frame's window.
    std::function<void(bool)> showNavigator;

    // The page to show; it goes into the address list too.
    void StartingAddress(const QString& url);
    void addAddress(const QString& url);
    // "Nav Hide" hides the navigator, "Nav Show" shows it again.
    void Command1_Click();
    // The browser closed: the navigator comes back, so that it is never lost.
    void Form_Unload();
};

// "Home": the program's site, or the message that its host is not set. Empty when told.
QString browserHome(Program& program);

// Sets the start address and shows frmBrowser.
void openBrowser(Program& program, const QString& url);

// Whether the built-in web view may start in this process. Its engine ends the whole program
// when it starts as root with its sandbox on; there pages go to the desktop's browser, unless
// the sandbox was turned off by hand (--no-sandbox among the engine's flags, or its switch).
bool builtInViewCanRun(bool root, const QByteArray& engineFlags, bool sandboxSwitchedOff);

inline const QString kPageNotOpened = QStringLiteral("The page could not be opened: ");

}  // namespace ostravel
