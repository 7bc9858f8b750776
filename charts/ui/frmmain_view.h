// The chart window frmMain: its menus, the shown picture with the crosshair, the dividers, the
// mouse label and a drawing tool's rubber band over it, the pop-up menu, and the chart's three
// dialogs. It mirrors FrmMain and forwards every act.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>

class QAction;
class QLabel;
class QMenu;
class QMenuBar;
class QTimer;

namespace ostravel {

class FrmMain;
class Program;

// ChartBoxV: the shown picture, which receives the mouse and the wheel.
class ChartBoxView : public QWidget {
    Q_OBJECT
public:
    ChartBoxView(FrmMain& state, QWidget* parent);

    // Shows the state again: the whole picture after a redraw, else only where the lines over
    // it were and are.
    void mirror();

Q_SIGNALS:
    void changed();
    void popUp(const QPoint& at);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    // The strips the crosshair and dividers cover, to be painted again when they move.
    QRegion overRegion() const;
    // While a tool runs, the pointer stays in the band of the pane of the first click.
    void confinePointer(const QPoint& at);

    FrmMain& m_state;
    QLabel* m_label;
    QLabel* m_instruct;
    QTimer* m_heartbeat;
    bool m_banded = false;  // a rubber band was shown at the last mirror
    QRegion m_lastOver;
    qint64 m_shownPicture = 0;
    int m_wheelEighths = 0;
};

class FrmMainForm : public QWidget {
    Q_OBJECT
public:
    // `exitProgram` is the main frame's File - Exit, which the chart's own Exit runs.
    FrmMainForm(Program& program, std::function<void()> exitProgram, QWidget* parent = nullptr);
    ~FrmMainForm() override;

    FrmMain& state() { return *m_state; }
    // After the window is shown: the history, and the chart when it loads.
    void loadHistory();
    void refresh();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void buildMenus(QMenuBar* bar);
    void buildPopUp();
    // The three dialogs, modal over the chart.
    void GetOptionsDlg();
    void showIndicators();
    void showDrawingTools();
    // Runs one of the state's procedures, then mirrors the state.
    void act(const std::function<void()>& procedure);

    std::unique_ptr<FrmMain> m_state;
    std::function<void()> m_exitProgram;
    ChartBoxView* m_chart = nullptr;
    QMenu* m_popUp = nullptr;
    QAction* m_overlay = nullptr;
    QList<QAction*> m_waiting;           // what waits while a drawing tool runs
    QAction* m_cancelDrawing = nullptr;  // and what only a running tool offers
};

}  // namespace ostravel
