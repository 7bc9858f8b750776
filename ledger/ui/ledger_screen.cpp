#include "ledger/ui/ledger_screen.h"

#include <QComboBox>
#include <QSignalBlocker>
#include <algorithm>

#include "runtime/vbdate.h"
#include "widgets/datepicker.h"

namespace ostravel {

void takeFocus(QWidget* screen, QString& focus) {
    if (focus.isEmpty())
        return;
    if (auto* control = screen->findChild<QWidget*>(focus))
        control->setFocus();
    focus.clear();
}

QComboBox* makeListBox(const QString& name, QWidget* parent) {
    auto* combo = new QComboBox(parent);
    combo->setObjectName(name);
    combo->setMaxVisibleItems(20);
    return combo;
}

void mirrorList(QComboBox* combo, const ComboBox& box) {
    const QSignalBlocker blocker(combo);
    bool same = combo->count() == box.items.size();
    for (int i = 0; same && i < combo->count(); ++i) same = combo->itemText(i) == box.items.at(i);
    if (!same) {
        combo->clear();
        combo->addItems(box.items);
    }
    combo->setCurrentIndex(combo->findText(box.text, Qt::MatchExactly));
}

void showDatePicker(DatePicker* picker, const QWidget* button, bool visible, double serial) {
    if (!visible) {
        picker->hide();
        return;
    }
    if (picker->isVisible())
        return;
    picker->setInitDate(serialToDate(serial));
    picker->adjustSize();
    QWidget* screen = picker->parentWidget();
    const QPoint below = button->mapTo(screen, QPoint(0, button->height()));
    const int x = std::max(0, std::min(below.x(), screen->width() - picker->width()));
    const int y = std::max(0, std::min(below.y(), screen->height() - picker->height()));
    picker->move(x, y);
    picker->raise();
    picker->show();
    picker->setFocus();
}

}  // namespace ostravel
