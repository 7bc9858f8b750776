#include "app/help_window.h"

#include <QDialog>
#include <QPointer>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

#include "runtime/apppath.h"

namespace ostravel {

void showHelpWindow(QWidget* frame) {
    static QPointer<QDialog> window;
    if (!window) {
        window = new QDialog(frame);
        window->setObjectName(QStringLiteral("HelpWindow"));
        window->setWindowTitle(QStringLiteral("Ostravel Help"));
        window->setAttribute(Qt::WA_DeleteOnClose);
        auto* browser = new QTextBrowser(window);
        browser->setObjectName(QStringLiteral("HelpBrowser"));
        browser->setSource(QUrl::fromLocalFile(appFile(QStringLiteral("help/ostravel.html"))));
        auto* layout = new QVBoxLayout(window);
        layout->addWidget(browser);
        window->resize(800, 600);
    }
    window->show();
    window->raise();
    window->activateWindow();
}

}  // namespace ostravel
