// Main: the single-instance test, the store, the splash, then the frame.
#include <QApplication>
#include <QDir>

#include "app/mdiform1_view.h"
#include "app/splash_view.h"
#include "context/program.h"
#include "context/program_folder.h"
#include "context/single_instance.h"
#include "market/hosts.h"
#include "runtime/apppath.h"
#include "widgets/qt_prompt.h"

using namespace ostravel;

int main(int argc, char** argv) {
    // The web view of the navigator shares its drawing contexts with the windows.
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication app(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Ostravel"));
    QApplication::setApplicationName(QStringLiteral("Ostravel"));

    QtPrompt prompt;
    QDir().mkpath(appPath());
    const SingleInstance instance(appFile(QStringLiteral("ostravel.lock")));
    if (refuseSecondInstance(instance, prompt))
        return 1;

    QString problem = prepareProgramFolder();
    if (problem.isEmpty())
        problem = ensureHostsFile();
    if (!problem.isEmpty()) {
        prompt.message(problem, Buttons::OK, Icon::Critical, QStringLiteral("Ostravel"));
        return 1;
    }

    Program program(prompt);
    try {
        program.store().connection();
    } catch (const DatabaseUnusable& e) {
        // A database that can't be read is left exactly as it is for the user to recover.
        prompt.message(
            e.description() + QStringLiteral("\n\nOstravel has not changed this file. Move it away or restore a backup "
                                             "in its place, then start Ostravel again."),
            Buttons::OK, Icon::Critical, QStringLiteral("Ostravel"));
        return 1;
    }

    MDIForm1View* frame = nullptr;
    frmSplash splash(program);
    QObject::connect(&splash, &frmSplash::showFrame, [&] {
        frame = new MDIForm1View(program);
        frame->setAttribute(Qt::WA_DeleteOnClose);
        prompt.setParentWindow(frame);
        // The whole window, title bar and borders too, on the screen's available area: the
        // window manager alone knows its decorations, and fits them so to a maximized window.
        frame->showMaximized();
    });
    splash.show();
    return app.exec();
}
