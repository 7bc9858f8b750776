#include "ledger/ui/frmportwizard_view.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPointer>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "context/program.h"
#include "ledger/frmportwizard.h"
#include "ledger/ui/ledger_screen.h"
#include "runtime/vbdate.h"
#include "widgets/control_binding.h"
#include "widgets/datepicker.h"
#include "widgets/flexgrid.h"

namespace ostravel {

frmportwizard::frmportwizard(Program& program, QWidget* parent)
    : QWidget(parent), m_program(program), m_state(program.module<PortfolioManager>()) {
    setObjectName(QStringLiteral("frmportwizard"));
    setWindowTitle(PortfolioManager::kCaption);

    auto* Frame1 = new QGroupBox(QStringLiteral("Select Portfolio"), this);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    m_Combo1 = makeListBox(QStringLiteral("Combo1"), Frame1);
    m_Combo1->setMinimumContentsLength(16);
    auto* select = new QHBoxLayout(Frame1);
    select->addWidget(new QLabel(QStringLiteral("Select->"), Frame1));
    select->addWidget(m_Combo1);
    select->addWidget(
        addButton(QStringLiteral("cmdpwizard"), m_state.cmdpwizard, &PortfolioManager::cmdpwizard_Click, Frame1));
    select->addWidget(
        addButton(QStringLiteral("cmdtwizard"), m_state.cmdtwizard, &PortfolioManager::cmdtwizard_Click, Frame1));
    select->addStretch();

    m_Frame2 = new QGroupBox(QStringLiteral("Equity Details"), this);
    m_Frame2->setObjectName(QStringLiteral("Frame2"));
    m_Text1 = makeTextBox(QStringLiteral("Text1"), m_state.Text1, m_Frame2, false);
    m_Text2 = makeTextBox(QStringLiteral("Text2"), m_state.Text2, m_Frame2, false);
    m_Text2->hide();
    m_cmdestartdate = addButton(QStringLiteral("cmdestartdate"), m_state.cmdestartdate,
                                &PortfolioManager::cmdestartdate_Click, m_Frame2);
    auto* details = new QGridLayout(m_Frame2);
    details->addWidget(new QLabel(QStringLiteral("Equity Symbol :"), m_Frame2), 0, 0);
    details->addWidget(m_Text1, 0, 1);
    details->addWidget(m_cmdestartdate, 0, 2);
    details->addWidget(
        addButton(QStringLiteral("cmdupdate"), m_state.cmdupdate, &PortfolioManager::cmdupdate_Click, m_Frame2), 0, 3);
    details->addWidget(
        addButton(QStringLiteral("cmddelete"), m_state.cmddelete, &PortfolioManager::cmddelete_Click, m_Frame2), 0, 4);
    details->setColumnStretch(5, 1);

    m_MSFlexGrid1 = new QTableWidget(this);
    m_MSFlexGrid1->setObjectName(QStringLiteral("MSFlexGrid1"));
    setUpFlexGrid(*m_MSFlexGrid1);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(addButton(QStringLiteral("cmdadd"), m_state.cmdadd, &PortfolioManager::cmdadd_Click, this));
    buttons->addStretch();
    buttons->addWidget(
        addButton(QStringLiteral("cmdclose"), m_state.cmdclose, &PortfolioManager::cmdclose_Click, this));

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Frame1);
    layout->addWidget(m_Frame2);
    layout->addWidget(m_MSFlexGrid1, 1);
    layout->addLayout(buttons);

    m_DatePicker1 = new DatePicker(this);
    m_DatePicker1->setObjectName(QStringLiteral("DatePicker1"));

    connect(m_Combo1, &QComboBox::activated, this, [this](int index) {
        m_state.Combo1.text = m_Combo1->itemText(index);
        act(&PortfolioManager::Combo1_Click);
    });
    const auto rowChosen = [this](int r, int c) {
        if (r < 0 || c < 0)
            return;
        // The table's rows start below the grid's heading row.
        m_state.MSFlexGrid1_Click(r + 1, c);
        refresh();
    };
    connect(m_MSFlexGrid1, &QTableWidget::cellClicked, this, rowChosen);
    connect(m_MSFlexGrid1, &QTableWidget::currentCellChanged, this, rowChosen);
    connect(m_DatePicker1, &DatePicker::OK, this, [this](const QDate& date) {
        m_state.DatePicker1_OK(dateSerial(date));
        refresh();
    });
    connect(m_DatePicker1, &DatePicker::Cancel, this, [this] { act(&PortfolioManager::DatePicker1_Cancel); });

    m_state.closeView = [view = QPointer<frmportwizard>(this)] {
        if (!view)
            return;
        view->m_unloaded = true;
        // In the frame the screen sits in a child window, which goes with it.
        if (auto* sub = qobject_cast<QMdiSubWindow*>(view->parentWidget()))
            sub->close();
        else
            view->close();
    };
    m_state.load();
    refresh();
}

frmportwizard::~frmportwizard() {
    if (!m_unloaded && m_state.loaded) {
        m_state.closeView = nullptr;
        m_state.unload();
    }
}

QPushButton* frmportwizard::addButton(const QString& name, const Button& button, void (PortfolioManager::*click)(),
                                      QWidget* parent) {
    auto* push = new QPushButton(button.caption, parent);
    push->setObjectName(name);
    connect(push, &QPushButton::clicked, this, [this, click] { act(click); });
    m_buttons.append({push, &button});
    return push;
}

void frmportwizard::act(void (PortfolioManager::*procedure)()) {
    (m_state.*procedure)();
    if (m_unloaded)
        return;
    refresh();
    m_program.frame().showChanges();
}

void frmportwizard::refresh() {
    mirrorList(m_Combo1, m_state.Combo1);
    m_Frame2->setVisible(m_state.Frame2Visible);
    m_Frame2->setEnabled(m_state.Frame2Enabled);
    mirror(m_Text1, m_state.Text1);
    mirror(m_Text2, m_state.Text2);
    for (const auto& [push, button] : m_buttons) {
        push->setText(button->caption);
        push->setEnabled(button->enabled);
    }
    {
        const QSignalBlocker blocker(m_MSFlexGrid1);
        showFlexGrid(*m_MSFlexGrid1, m_state.MSFlexGrid1);
    }
    showDatePicker(m_DatePicker1, m_cmdestartdate, m_state.DatePicker1Visible, m_state.DatePicker1Value);
    takeFocus(this, m_state.focus);
}

void frmportwizard::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        act(&PortfolioManager::cmdclose_Click);
        return;
    }
    QWidget::keyPressEvent(event);
}

void frmportwizard::closeEvent(QCloseEvent* event) {
    // The child window's close box unloads the screen as Close does.
    if (!m_unloaded && m_state.loaded) {
        m_unloaded = true;
        m_state.closeView = nullptr;
        m_state.unload();
    }
    QWidget::closeEvent(event);
}

}  // namespace ostravel
