#include "market/ui/frmexplore_view.h"

#include <QAbstractButton>
#include <QListWidget>
#include <QScrollArea>
#include <QShortcut>
#include <QToolBox>
#include <QVBoxLayout>

#include "context/program.h"
#include "market/frmexplore.h"

namespace ostravel {

FrmExploreForm::FrmExploreForm(Program& program, QWidget* parent) : QWidget(parent), m_program(program) {
    setObjectName(QStringLiteral("frmexplore"));
    setWindowTitle(QStringLiteral("Navigator"));
    auto* bar = new QToolBox(this);
    bar->setObjectName(QStringLiteral("ctxOutlookBar1"));
    for (const NavGroup& group : navigatorGroups()) {
        auto* items = new QListWidget(bar);
        items->addItems(group.items);
        items->setCurrentRow(0);
        connect(items, &QListWidget::itemClicked, this,
                [this](QListWidgetItem* item) { ctxOutlookBar1_ItemClick(m_program, item->text()); });
        // From the keyboard, Enter runs the current item as a click does.
        for (const QKeySequence& key : {QKeySequence(Qt::Key_Return), QKeySequence(Qt::Key_Enter)}) {
            auto* enter = new QShortcut(key, items, nullptr, nullptr, Qt::WidgetShortcut);
            connect(enter, &QShortcut::activated, this, [this, items] {
                if (items->currentItem())
                    ctxOutlookBar1_ItemClick(m_program, items->currentItem()->text());
            });
        }
        bar->addItem(items, group.caption);
    }
    // From the keyboard: Tab reaches the group headings, Space opens one and puts the keyboard in
    // its items; the frame round a group's items is passed over. The navigator, given the
    // keyboard, gives it to the open group's items.
    for (QAbstractButton* heading : bar->findChildren<QAbstractButton*>()) heading->setFocusPolicy(Qt::TabFocus);
    for (QScrollArea* frame : bar->findChildren<QScrollArea*>()) frame->setFocusPolicy(Qt::NoFocus);
    setFocusProxy(bar->currentWidget());
    connect(bar, &QToolBox::currentChanged, this, [this, bar] {
        setFocusProxy(bar->currentWidget());
        bar->currentWidget()->setFocus();
    });
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(bar);
}

}  // namespace ostravel
