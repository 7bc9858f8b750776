#include "market/ui/frmdma_view.h"

#include <QDesktopServices>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QProgressDialog>
#include <QPushButton>
#include <QTableWidget>
#include <QUrl>
#include <QVBoxLayout>

#include "context/program.h"
#include "market/frmdma.h"
#include "widgets/flexgrid.h"

namespace ostravel {

FrmDmaForm::FrmDmaForm(Program& program, QWidget* parent) : QWidget(parent), m_state(program.module<FrmDma>()) {
    setObjectName(QStringLiteral("frmdma"));
    setWindowTitle(QStringLiteral("50/200 DMA"));
    m_MSFlexGrid1 = new QTableWidget(this);
    m_MSFlexGrid1->setObjectName(QStringLiteral("MSFlexGrid1"));
    setUpFlexGrid(*m_MSFlexGrid1);

    auto* buttons = new QHBoxLayout;
    const auto add = [&](const char* name, const char* caption, void (FrmDma::*click)()) {
        auto* button = new QPushButton(QString::fromUtf8(caption), this);
        button->setObjectName(QString::fromLatin1(name));
        connect(button, &QPushButton::clicked, this, [this, click] {
            (m_state.*click)();
            refresh();
        });
        buttons->addWidget(button);
        return button;
    };
    add("Cmdbest", "Best Picks", &FrmDma::Cmdbest_Click);
    add("cmdgainer", "Top Gainer", &FrmDma::cmdgainer_Click);
    add("cmdlooser", "Top Looser", &FrmDma::cmdlooser_Click);
    add("cmdvoltopper", "Volume Topper", &FrmDma::cmdvoltopper_Click);
    auto* save = new QPushButton(QStringLiteral("Save to Excel"), this);
    save->setObjectName(QStringLiteral("Cmdsave"));
    connect(save, &QPushButton::clicked, this, [this] {
        m_state.Cmdsave_Click([](const QString& path) { return QDesktopServices::openUrl(QUrl::fromLocalFile(path)); });
    });
    buttons->addWidget(save);
    buttons->addStretch();

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_MSFlexGrid1, 1);
    layout->addLayout(buttons);

    const auto sort = [this](int col) {
        m_state.MSFlexGrid1_DblClick(col);
        refresh();
    };
    connect(m_MSFlexGrid1, &QTableWidget::cellDoubleClicked, this, [sort](int, int col) { sort(col); });
    connect(m_MSFlexGrid1->horizontalHeader(), &QHeaderView::sectionDoubleClicked, this, sort);
    m_state.Gridclean();
    refresh();
}

void FrmDmaForm::load() {
    QProgressDialog progress(QStringLiteral("Quotes of the symbol list"), QStringLiteral("Stop"), 0, 1, this);
    progress.setWindowTitle(QStringLiteral("50/200 DMA"));
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(0);
    m_state.Form_Load([&progress](int done, int total) {
        progress.setMaximum(total);
        progress.setValue(done);
        return !progress.wasCanceled();
    });
    refresh();
}

void FrmDmaForm::refresh() {
    showFlexGrid(*m_MSFlexGrid1, m_state.MSFlexGrid1);
}

}  // namespace ostravel
