// What the ledger's wizard screens share on the widget side: the focus that the logic asks for, the company and
// portfolio lists, and the hidden calendar beside its date button.
#pragma once

#include "context/controls.h"

class QComboBox;
class QWidget;

namespace ostravel {

class DatePicker;

// Puts the focus on the screen's control of that name, and clears the request.
void takeFocus(QWidget* screen, QString& focus);

// A list to choose from (no typing): a text outside the list shows as no choice.
QComboBox* makeListBox(const QString& name, QWidget* parent);
void mirrorList(QComboBox* combo, const ComboBox& box);

// Shows the calendar on the date of `serial` below its button, within the screen, or hides it.
void showDatePicker(DatePicker* picker, const QWidget* button, bool visible, double serial);

}  // namespace ostravel
