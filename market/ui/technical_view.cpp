#include "market/ui/technical_view.h"

#include <QDateEdit>
#include <QHBoxLayout>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "context/program.h"
#include "market/technical.h"
#include "widgets/flexgrid.h"

namespace ostravel {

TechnicalForm::TechnicalForm(Program& program, QWidget* parent)
    : QWidget(parent), m_program(program), m_state(program.module<Technical>()) {
    setObjectName(QStringLiteral("Technical"));
    setWindowTitle(QStringLiteral("Technical"));
    m_DTPicker1 = new QDateEdit(m_state.DTPicker1, this);
    m_DTPicker1->setObjectName(QStringLiteral("DTPicker1"));
    m_DTPicker1->setCalendarPopup(true);
    m_DTPicker1->setDisplayFormat(QStringLiteral("dd/MM/yyyy"));
    connect(m_DTPicker1, &QDateEdit::dateChanged, this, [this](const QDate& day) { m_state.DTPicker1 = day; });

    auto* top = new QHBoxLayout;
    top->addWidget(m_DTPicker1);
    const auto add = [&](const char* name, const char* caption, void (Technical::*click)()) {
        auto* button = new QPushButton(QString::fromUtf8(caption), this);
        button->setObjectName(QString::fromLatin1(name));
        connect(button, &QPushButton::clicked, this, [this, click] {
            (m_state.*click)();
            refresh();
        });
        top->addWidget(button);
    };
    add("Command1", "Gainers", &Technical::Command1_Click);
    add("Command2", "Lossers", &Technical::Command2_Click);
    add("Command3", "Volume", &Technical::Command3_Click);
    top->addStretch();

    m_MSFlexGrid1 = new QTableWidget(this);
    m_MSFlexGrid1->setObjectName(QStringLiteral("MSFlexGrid1"));
    setUpFlexGrid(*m_MSFlexGrid1);
    connect(m_MSFlexGrid1, &QTableWidget::cellClicked, this, [this](int row, int) {
        // The table's rows start below the grid's heading row.
        m_state.MSFlexGrid1_Click(row + 1);
    });

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(m_MSFlexGrid1, 1);
    m_state.Form_Load();
    refresh();
}

void TechnicalForm::refresh() {
    showFlexGrid(*m_MSFlexGrid1, m_state.MSFlexGrid1);
}

}  // namespace ostravel
