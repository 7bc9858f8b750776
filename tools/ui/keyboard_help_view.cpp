#include "tools/ui/keyboard_help_view.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "tools/keyboard_help.h"

namespace ostravel {

FRM_KEYBOARD_HELP::FRM_KEYBOARD_HELP(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("FRM_KEYBOARD_HELP"));
    setWindowTitle(QStringLiteral("Keyboard Help"));
    setProperty("keepsSize", true);

    const QList<KeyHelpRow> rows = keyboardHelpRows();
    auto* grid = new QTableWidget(int(rows.size()), 2, this);
    grid->setObjectName(QStringLiteral("MSFlexGrid1"));
    grid->setHorizontalHeaderLabels({QStringLiteral("Key"), QStringLiteral("Action")});
    grid->verticalHeader()->hide();
    grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    for (int r = 0; r < rows.size(); ++r) {
        grid->setItem(r, 0, new QTableWidgetItem(rows[r].key));
        grid->setItem(r, 1, new QTableWidgetItem(rows[r].action));
    }
    grid->resizeColumnsToContents();
    grid->horizontalHeader()->setStretchLastSection(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(grid);
    // Wide enough for both columns whole, the descriptions too.
    const QMargins margins = layout->contentsMargins();
    const int columns = grid->horizontalHeader()->length() + 2 * grid->frameWidth() +
                        grid->verticalScrollBar()->sizeHint().width() + margins.left() + margins.right();
    // A child window of the frame takes its widget's least size, not the size it was given.
    setMinimumSize(std::max(560, columns), 460);
}

}  // namespace ostravel
