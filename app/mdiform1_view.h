// The main frame: menu, cool bar with the selection boxes, the area for child windows, and
// the status bar. It mirrors MainFrame's state and forwards the user's actions to it.
#pragma once

#include <QHash>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QPointer>
#include <array>
#include <functional>
#include <optional>

class QAction;
class QComboBox;
class QLabel;
class QMdiArea;
class QPushButton;
class QTimer;
class QToolBar;

namespace ostravel {

class MsgScrollerView;
class Program;
struct MenuItem;

class MDIForm1View : public QMainWindow {
    Q_OBJECT
public:
    explicit MDIForm1View(Program& program, QWidget* parent = nullptr);
    ~MDIForm1View() override;

    QMdiArea* mdiArea() const { return m_mdi; }
    // Shows a screen as a child window placed by PosForm.
    void showChild(QWidget* screen);
    // A screen that is one window: an open one comes to the front, else make() gives a new one.
    QWidget* showSingleChild(const QString& name, const std::function<QWidget*()>& make);
    // A report of the stock in work: one opened again takes the place of the earlier window.
    void showReport(QWidget* report);
    QAction* action(const QString& name) const { return m_actions.value(name); }
    // The navigator frmexplore at the left of the child area, shown or hidden.
    void showNavigator(bool visible);

    // Mirrors the frame's state into the widgets.
    void refresh();

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // The child window that holds the screen of that name, if one is open.
    QMdiSubWindow* openChild(const QString& name) const;
    void buildMenus();
    void addMenuItems(QWidget* menu, const QList<MenuItem>& items);
    void buildCoolBar();
    void buildTicker(QToolBar* bar);
    // Mirrors the ticker's state: the button's caption, the strip, Timer1.
    void showTicker();
    void buildStatusBar();
    void updatePanels();
    void connectMenu();
    void onExit();
    void showQuickIfWanted();
    // Where the navigator stands, when it is shown.
    std::optional<QRect> navigatorPlace() const;

    Program& m_program;
    QMdiArea* m_mdi = nullptr;
    QHash<QString, QAction*> m_actions;
    QComboBox* m_cmbportfolio = nullptr;
    QComboBox* m_Cmbequityname = nullptr;
    QComboBox* m_cmbequity = nullptr;
    QPushButton* m_Command1 = nullptr;  // "Get History"
    QPushButton* m_cdmrunsimulation = nullptr;
    std::array<QLabel*, 6> m_panels{};
    MsgScrollerView* m_MsgScroller1 = nullptr;
    QAction* m_tickerAction = nullptr;
    QTimer* m_Timer1 = nullptr;
    QPointer<QMdiSubWindow> m_navigator;  // closing all windows at Exit takes it too
    bool m_exiting = false;
};

}  // namespace ostravel
