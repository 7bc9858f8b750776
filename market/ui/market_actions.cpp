#include "market/ui/market_actions.h"

#include <QDir>
#include <QFileInfo>
#include <QProgressDialog>

#include "context/program.h"
#include "market/frmproxy.h"
#include "market/gethistory.h"
#include "market/history.h"
#include "market/history_import.h"
#include "market/load_history.h"
#include "market/ui/frmproxy_view.h"
#include "market/update_history.h"

namespace ostravel {

namespace {

// A progress dialog over the frame for a walk of many steps; Cancel ends the walk.
class Progress {
public:
    Progress(QWidget* parent, const QString& title, int total)
        : m_dialog(title, QStringLiteral("Stop"), 0, total, parent) {
        m_dialog.setWindowTitle(title);
        m_dialog.setWindowModality(Qt::WindowModal);
        m_dialog.setMinimumDuration(0);
    }
    bool step(int done, const QString& text) {
        m_dialog.setValue(done);
        m_dialog.setLabelText(text);
        return !m_dialog.wasCanceled();
    }

private:
    QProgressDialog m_dialog;
};

}  // namespace

void showProxySettings(Program& program, QWidget* parent) {
    FrmProxyForm dialog(program.module<FrmProxy>(), parent);
    dialog.exec();
}

void showImportHistory(Program& program, QWidget* parent) {
    (void)parent;
    Prompt& prompt = program.prompt();
    const std::optional<QString> source = prompt.openFile(QStringLiteral("Import History"), QDir::homePath(),
                                                          QStringLiteral("History files (*.csv);;All files (*)"));
    if (!source || source->isEmpty())
        return;
    const std::optional<QString> symbol =
        prompt.input(QStringLiteral("The stock's code, without \".NS\":"), QStringLiteral("Import History"),
                     QFileInfo(*source).completeBaseName().replace(QStringLiteral(".NS"), QString()));
    if (!symbol || symbol->trimmed().isEmpty())
        return;
    const HistoryImport result = importHistoryFile(*source, symbol->trimmed());
    prompt.message(importSummary(result), Buttons::OK, result.error.isEmpty() ? Icon::Information : Icon::Exclamation,
                   QStringLiteral("Import History"));
}

void runUpdateHistory(Program& program, QWidget* parent) {
    const QDate today = QDate::currentDate();
    std::optional<Progress> progress;
    cmdupdatehistory_Click(program, today, [&](const UpdateProgress& step) {
        if (!progress)
            progress.emplace(parent, QStringLiteral("Update History"), step.total);
        return progress->step(step.done,
                              QStringLiteral("Day file of ") + step.day.toString(QStringLiteral("dd MMM yyyy")));
    });
}

void runGetHistoryAll(Program& program, QWidget* parent) {
    HistoryState& history = program.module<HistoryState>();
    const auto command1 =
        history.Command1_Click ? history.Command1_Click : [&program] { historyIntoSimulation(program); };
    const int total = static_cast<int>(program.store().niftyquote ? program.store().niftyquote->recordCount() : 0);
    Progress progress(parent, QStringLiteral("Get History All"), total);
    int done = 0;
    mnugethistory_Click(program, command1, [&] { return !progress.step(done++, program.frame().cmbequity); });
}

void runOpenFile(Program& program) {
    OpenDataFile(program);
}

}  // namespace ostravel
