#include "position/ui/frmmodel_view.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "context/program.h"
#include "position/frmmodel.h"

namespace ostravel {

FrmModelForm::FrmModelForm(Program& program, const QString& portfolioName, QWidget* parent)
    : QDialog(parent), m_state(program.module<FrmModel>()), m_portfolioName(portfolioName) {
    setObjectName(QStringLiteral("frmmodel"));
    setWindowTitle(QStringLiteral("Model"));
    setModal(true);

    auto* Frame1 = new QGroupBox(QStringLiteral("Select Model"), this);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    auto* grid = new QGridLayout(Frame1);
    for (int i = 0; i < int(m_Option1.size()); ++i) {
        auto* option = new QRadioButton(m_state.Option1[i].caption, Frame1);
        option->setObjectName(QStringLiteral("Option1_%1").arg(i));
        connect(option, &QRadioButton::toggled, this, [this, i](bool on) { m_state.Option1[i].value = on; });
        auto* description = new QLabel(m_state.Option1[i].description, Frame1);
        description->setObjectName(QStringLiteral("Label1_%1").arg(i));
        grid->addWidget(option, i, 0);
        grid->addWidget(description, i, 1);
        m_Option1[i] = option;
        m_descriptions[i] = description;
    }

    auto* ModelNextButton = new QPushButton(QStringLiteral("Next"), this);
    ModelNextButton->setObjectName(QStringLiteral("ModelNextButton"));
    ModelNextButton->setDefault(true);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(ModelNextButton);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Frame1);
    layout->addLayout(buttons);

    m_state.unload = [this] {
        m_unloaded = true;
        accept();
    };
    connect(ModelNextButton, &QPushButton::clicked, this, [this] {
        m_state.ModelNextButton_Click(m_portfolioName);
        refresh();
    });
    refresh();
}

FrmModelForm::~FrmModelForm() {
    m_state.unload = nullptr;
}

void FrmModelForm::refresh() {
    for (int i = 0; i < int(m_Option1.size()); ++i) {
        const QSignalBlocker blocker(m_Option1[i]);
        m_Option1[i]->setText(m_state.Option1[i].caption);
        m_Option1[i]->setChecked(m_state.Option1[i].value);
        m_descriptions[i]->setText(m_state.Option1[i].description);
    }
}

void FrmModelForm::reject() {
    // Escape or the close box: back to Create, unless the dialog has already unloaded itself.
    if (!m_unloaded)
        m_state.cancel();
    if (isVisible())
        QDialog::reject();
}

}  // namespace ostravel
