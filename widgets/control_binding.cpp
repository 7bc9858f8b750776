#include "widgets/control_binding.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPalette>

#include "runtime/keyfilters.h"
#include "widgets/flexgrid.h"
#include "widgets/key_filter.h"

namespace ostravel {

QLineEdit* makeTextBox(const QString& name, TextBox& box, QWidget* parent, bool numeric) {
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(name);
    if (numeric)
        KeyFilter::install(edit, testnumber);
    QObject::connect(edit, &QLineEdit::textChanged, edit, [&box](const QString& text) { box.text = text; });
    mirror(edit, box);
    return edit;
}

void mirror(QLineEdit* edit, const TextBox& box) {
    if (edit->text() != box.text)
        edit->setText(box.text);
    edit->setEnabled(box.enabled);
    QPalette palette = edit->palette();
    palette.setColor(QPalette::Text, toQColor(box.foreColour));
    edit->setPalette(palette);
}

QComboBox* makeComboBox(const QString& name, ComboBox& box, QWidget* parent) {
    auto* combo = new QComboBox(parent);
    combo->setObjectName(name);
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    QObject::connect(combo, &QComboBox::currentTextChanged, combo, [&box](const QString& text) { box.text = text; });
    mirror(combo, box);
    return combo;
}

void mirror(QComboBox* combo, const ComboBox& box) {
    QStringList shown;
    for (int i = 0; i < combo->count(); ++i) shown << combo->itemText(i);
    if (shown != box.items) {
        const QSignalBlocker blocker(combo);
        combo->clear();
        combo->addItems(box.items);
    }
    // A text outside the list still shows, as a combo box's text can be anything.
    const int index = combo->findText(box.text);
    if (index >= 0)
        combo->setCurrentIndex(index);
    combo->setEditText(box.text);
}

}  // namespace ostravel
