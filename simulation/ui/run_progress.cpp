#include "simulation/ui/run_progress.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMainWindow>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>
#include <QToolBar>

#include "context/program.h"
#include "simulation/simulation_run.h"

namespace ostravel {

namespace {

// The window's events run this often during a run, in milliseconds: often enough to feel
// alive, seldom enough to cost the run nothing.
constexpr qint64 kEventsEvery = 40;

}  // namespace

RunProgress::RunProgress(Program& program, QMainWindow* frame) : m_program(program), m_frame(frame) {
    m_program.module<SimulationRun>().progress = [this](std::int64_t done, std::int64_t most) {
        return step(done, most);
    };
    QApplication::instance()->installEventFilter(this);
    m_sinceEvents.start();
    if (!frame)
        return;
    frame->setCursor(Qt::WaitCursor);
    QList<QWidget*> still = {frame->menuBar(), frame->centralWidget()};
    for (QToolBar* bar : frame->findChildren<QToolBar*>()) still << bar;
    for (QWidget* widget : still) {
        if (!widget)
            continue;
        m_held.emplace_back(widget, widget->isEnabled());
        widget->setEnabled(false);
    }
    m_bar = new QProgressBar(frame->statusBar());
    m_bar->setObjectName(QStringLiteral("simulationProgress"));
    m_bar->setFormat(QStringLiteral("Simulating day %v of %m"));
    m_bar->setRange(0, 0);
    m_stop = new QPushButton(QStringLiteral("Stop"), frame->statusBar());
    m_stop->setObjectName(QStringLiteral("simulationStop"));
    m_stop->setToolTip(QStringLiteral("End the run on the days done (Esc)"));
    connect(m_stop, &QPushButton::clicked, this, [this] { m_stopped = true; });
    frame->statusBar()->addWidget(m_bar, 1);
    frame->statusBar()->addWidget(m_stop);
    m_bar->show();
    m_stop->show();
}

RunProgress::~RunProgress() {
    m_program.module<SimulationRun>().progress = {};
    QApplication::instance()->removeEventFilter(this);
    delete m_bar;
    delete m_stop;
    for (const auto& [widget, enabled] : m_held)
        if (widget)
            widget->setEnabled(enabled);
    if (m_frame)
        m_frame->unsetCursor();
}

bool RunProgress::step(std::int64_t done, std::int64_t most) {
    if (m_sinceEvents.elapsed() >= kEventsEvery) {
        if (m_bar) {
            m_bar->setRange(0, static_cast<int>(most));
            m_bar->setValue(static_cast<int>(done));
        }
        m_running = true;
        QCoreApplication::processEvents();
        m_running = false;
        m_sinceEvents.restart();
    }
    return !m_stopped;
}

bool RunProgress::eventFilter(QObject* watched, QEvent* event) {
    // Only the run's own Esc: a message box that the run shows keeps its Esc.
    if (m_running && event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        m_stopped = true;
        return true;
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace ostravel
