#include "widgets/report_view.h"

#include <QHeaderView>
#include <QLabel>
#include <QTableWidget>
#include <QVBoxLayout>

namespace ostravel {

ReportView::ReportView(const QString& name, const QString& caption, const QString& note, const QStringList& headings,
                       const std::vector<QStringList>& rows, QWidget* parent)
    : QWidget(parent) {
    setObjectName(name);
    setWindowTitle(caption);
    auto* label = new QLabel(note, this);
    label->setObjectName(QStringLiteral("lblnote"));
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* grid = new QTableWidget(int(rows.size()), int(headings.size()), this);
    grid->setObjectName(QStringLiteral("MSFlexGrid1"));
    grid->setHorizontalHeaderLabels(headings);
    grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid->verticalHeader()->hide();
    for (int r = 0; r < int(rows.size()); ++r) {
        const QStringList& row = rows[std::size_t(r)];
        for (int c = 0; c < int(row.size()) && c < int(headings.size()); ++c) {
            auto* cell = new QTableWidgetItem(row[c]);
            bool figure = false;
            row[c].toDouble(&figure);
            // Figures line up on the right, dates and words on the left.
            cell->setTextAlignment((figure ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
            grid->setItem(r, c, cell);
        }
    }
    grid->resizeColumnsToContents();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(grid, 1);
    setFocusProxy(grid);
}

}  // namespace ostravel
