// A simulation run on the main frame: a bar and a "Stop" button on its status bar, the hourglass
// over it, and the menus, cool bar and windows held still while the run works on what they
// show. Esc or "Stop" ends the run cleanly on the days done.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <cstdint>
#include <vector>

class QMainWindow;
class QProgressBar;
class QPushButton;
class QWidget;

namespace ostravel {

class Program;

class RunProgress : public QObject {
    Q_OBJECT
public:
    // Sets the run's progress hook for its lifetime.
    RunProgress(Program& program, QMainWindow* frame);
    ~RunProgress() override;
    RunProgress(const RunProgress&) = delete;
    RunProgress& operator=(const RunProgress&) = delete;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // Shows the days done and lets the window's events run, now and then; false once stopped.
    bool step(std::int64_t done, std::int64_t most);

    Program& m_program;
    QPointer<QMainWindow> m_frame;
    QPointer<QProgressBar> m_bar;
    QPointer<QPushButton> m_stop;
    std::vector<std::pair<QPointer<QWidget>, bool>> m_held;  // with whether each was enabled
    QElapsedTimer m_sinceEvents;
    bool m_stopped = false;
    bool m_running = false;  // the window's events are running from within the run
};

}  // namespace ostravel
