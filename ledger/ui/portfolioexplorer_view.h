// The screen Portfolioexplorer: the overview grid, the market figures, the recommendation line
// and the buttons. It mirrors PortfolioExplorer and forwards the user's actions to it.
#pragma once

#include <QWidget>

class QComboBox;
class QLabel;
class QPushButton;
class QTableWidget;
class QTimer;

namespace ostravel {

class PortfolioExplorer;
class Program;

class PortfolioExplorerForm : public QWidget {
    Q_OBJECT
public:
    explicit PortfolioExplorerForm(Program& program, QWidget* parent = nullptr);

    // Mirrors the state into the widgets.
    void refresh();

private:
    QPushButton* addButton(const QString& name, const QString& caption, const QString& toolTip);
    void MSFlexGrid1_Click(int tableRow);
    void Command1_Click();
    // The main frame shows the selection that this screen has changed.
    void refreshFrame();

    Program& m_program;
    PortfolioExplorer& m_state;
    QTableWidget* m_MSFlexGrid1;
    QTableWidget* m_MSFlexGrid2;
    QComboBox* m_cmbequity;
    QLabel* m_lbladvise;
    QPushButton* m_Command1;
    QPushButton* m_cmdadd;
    QPushButton* m_cmdupdate;
    QPushButton* m_cmdcreate;
    QTimer* m_Timer1;
};

}  // namespace ostravel
