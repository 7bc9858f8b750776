// The screen equitymanager: the beginning and current position of one holding, the rule's
// settings, the advice with its next trades, the period of a simulation and its results. It
// mirrors EquityManager and forwards the buttons to EquityManagerActions.
#pragma once

#include <QList>
#include <QWidget>
#include <utility>

class QComboBox;
class QDateEdit;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;

namespace ostravel {

class EquityManager;
class EquityManagerActions;
class Program;
struct Label;
struct TextBox;

class EquityManagerForm : public QWidget {
    Q_OBJECT
public:
    explicit EquityManagerForm(Program& program, QWidget* parent = nullptr);
    // Closing the screen unloads it: its controls go back to their design values.
    ~EquityManagerForm() override;

    // Mirrors the state into the widgets.
    void refresh();

    // A page beside the narrative of a simulation, which the frame puts there.
    void addSimulationPage(QWidget* page, const QString& title);

protected:
    bool event(QEvent* event) override;

private:
    QLineEdit* box(const char* name, TextBox& state, QWidget* parent);
    // A box of a figure the program writes: read-only and no tab stop.
    QLineEdit* figure(const char* name, TextBox& state, QWidget* parent);
    QLabel* label(const char* name, Label& state, QWidget* parent);
    QPushButton* button(const char* name, const QString& caption, QWidget* parent);
    QGroupBox* makeBeginning();
    QGroupBox* makeCurrent();
    QGroupBox* makeSettings();
    QGroupBox* makeAdvice();
    QGroupBox* makeTradeHistory();
    QWidget* makeResults();
    QTabWidget* makeSimulationPages();

    // The screen came to the front among the main frame's children.
    void Form_Activate();
    void Command5_Click();
    void cmdaddtrade_Click();
    // The main frame's code box takes the focus after a refusal.
    void focusFrameCode();
    void refreshFrame();

    Program& m_program;
    EquityManager& m_state;
    EquityManagerActions& m_actions;
    QList<std::pair<QLineEdit*, const TextBox*>> m_boxes;
    QList<std::pair<QLabel*, const Label*>> m_labels;
    QGroupBox* m_Frame2_0 = nullptr;
    QWidget* m_Frame4 = nullptr;
    QLabel* m_lbladvise = nullptr;
    QPushButton* m_Command6 = nullptr;
    QPushButton* m_cmdaddtrade = nullptr;
    QPushButton* m_Command5 = nullptr;
    QPushButton* m_cmdwhatif = nullptr;
    QPushButton* m_Command3 = nullptr;
    QDateEdit* m_dtbdate = nullptr;
    QDateEdit* m_dtedate = nullptr;
    QComboBox* m_Combo1 = nullptr;
    QTabWidget* m_simulationPages = nullptr;
};

}  // namespace ostravel
