// The dialog frmIndicators, "Indicators & Options": the list of parameters with its in-place
// editor and colour cells, and the buttons. It mirrors FrmIndicators and forwards acts.
#pragma once

#include <QDialog>
#include <functional>
#include <memory>

class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidget;

namespace ostravel {

class FrmIndicators;
class Program;

class FrmIndicatorsForm : public QDialog {
    Q_OBJECT
public:
    explicit FrmIndicatorsForm(Program& program, QWidget* parent = nullptr);
    ~FrmIndicatorsForm() override;

    void refresh();

public Q_SLOTS:
    void done(int result) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void act(const std::function<void()>& procedure);
    int currentRow() const;

    std::unique_ptr<FrmIndicators> m_state;
    QGroupBox* m_Frame1;
    QLabel* m_header;
    QTreeWidget* m_list;
    QLineEdit* m_txtEdit;
    QPushButton* m_cmdType;
    QPushButton* m_cmdChangeInd;
    QPushButton* m_cmdUndo;
    int m_changeX = -1;  // where the last press on cmdChangeInd fell; -1 for the keyboard
    bool m_unloaded = false;
};

}  // namespace ostravel
