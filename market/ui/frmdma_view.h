// The screen frmdma, "50/200 DMA": the grid of the screener and its five buttons. It mirrors
// FrmDma and forwards the clicks, the double click and the save to it.
#pragma once

#include <QWidget>

class QTableWidget;

namespace ostravel {

class FrmDma;
class Program;

class FrmDmaForm : public QWidget {
    Q_OBJECT
public:
    explicit FrmDmaForm(Program& program, QWidget* parent = nullptr);

    // The load with its progress; the screen shows the grid afterwards.
    void load();
    void refresh();

private:
    FrmDma& m_state;
    QTableWidget* m_MSFlexGrid1;
};

}  // namespace ostravel
