// The position dialogs' boxes over their state: what the user types goes into the state's
// TextBox or ComboBox, and mirror() shows the state again after the logic has run.
#pragma once

#include "context/controls.h"

class QComboBox;
class QLineEdit;
class QWidget;

namespace ostravel {

// numeric: the box takes its keys through testnumber.
QLineEdit* makeTextBox(const QString& name, TextBox& box, QWidget* parent, bool numeric);
void mirror(QLineEdit* edit, const TextBox& box);

QComboBox* makeComboBox(const QString& name, ComboBox& box, QWidget* parent);
void mirror(QComboBox* combo, const ComboBox& box);

}  // namespace ostravel
