#include "simulation/ui/frmtradehistory_view.h"

#include <QLabel>
#include <QPointer>
#include <QResizeEvent>
#include <QTableWidget>
#include <algorithm>
#include <utility>

#include "context/program.h"
#include "simulation/frmtradehistory.h"
#include "widgets/close_form.h"
#include "widgets/flexgrid.h"

namespace ostravel {

namespace {

QTableWidget* makeGrid(const QString& name, QWidget* parent) {
    auto* grid = new QTableWidget(parent);
    grid->setObjectName(name);
    setUpFlexGrid(*grid);
    return grid;
}

QRect pixels(const QRect& twips) {
    return QRect(twipsToPixels(twips.left()), twipsToPixels(twips.top()), twipsToPixels(twips.width()),
                 twipsToPixels(twips.height()));
}

}  // namespace

TradeHistoryForm::TradeHistoryForm(Program& program, QWidget* parent)
    : QWidget(parent), m_state(program.module<FrmTradeHistory>()) {
    setObjectName(QStringLiteral("frmtradehistory"));
    m_state.load();
    m_state.closeView = [view = QPointer<TradeHistoryForm>(this)] {
        if (!view)
            return;
        view->m_unloaded = true;
        closeForm(view);
    };
    setWindowTitle(m_state.caption);

    m_Label2 = new QLabel(m_state.Label2.caption, this);
    m_Label2->setObjectName(QStringLiteral("Label2"));
    m_Label1 = new QLabel(m_state.Label1.caption, this);
    m_Label1->setObjectName(QStringLiteral("Label1"));
    m_MSFlexGrid1 = makeGrid(QStringLiteral("MSFlexGrid1"), this);
    m_MSFlexGrid2 = makeGrid(QStringLiteral("MSFlexGrid2"), this);
    for (const auto& [table, grid] :
         {std::pair{m_MSFlexGrid1, &m_state.MSFlexGrid1}, std::pair{m_MSFlexGrid2, &m_state.MSFlexGrid2}}) {
        showFlexGrid(*table, *grid);
        // A column is as wide as the program sets it, or as its widest text where that is more.
        for (int col = 0; col < table->columnCount(); ++col) {
            const int set = table->columnWidth(col);
            table->resizeColumnToContents(col);
            table->setColumnWidth(col, std::max(set, table->columnWidth(col)));
        }
    }
    place();
}

TradeHistoryForm::~TradeHistoryForm() {
    if (!m_unloaded && m_state.loaded) {
        m_state.closeView = nullptr;
        m_state.unload();
    }
}

void TradeHistoryForm::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    place();
}

void TradeHistoryForm::place() {
    const TradeHistoryLayout layout = tradeHistoryLayout(0, height() * kTwipsPerPixel, width() * kTwipsPerPixel);
    m_Label2->setGeometry(pixels(layout.Label2));
    m_MSFlexGrid1->setGeometry(pixels(layout.MSFlexGrid1));
    m_Label1->setGeometry(pixels(layout.Label1));
    m_MSFlexGrid2->setGeometry(pixels(layout.MSFlexGrid2));
}

}  // namespace ostravel
