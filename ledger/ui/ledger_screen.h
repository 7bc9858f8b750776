// What the ledger's wizard screens share on the widget side: the main frame shown again after
// an action, the focus that the logic asks for, the company and portfolio lists, and the
// hidden calendar beside its date button.
#pragma once

#include "position/controls.h"

class QComboBox;
class QWidget;

namespace ostravel {

class DatePicker;

// Mirrors the main frame's selection, caption and lists, which the screens' logic writes.
void refreshMainFrame(QWidget* screen);

// Puts the focus on the screen's control of that name, and clears the request.
void takeFocus(QWidget* screen, QString& focus);

// A list to choose from (no typing): a text outside the list shows as no choice.
QComboBox* makeListBox(const QString& name, QWidget* parent);
void mirrorList(QComboBox* combo, const ComboBox& box);

// Shows the calendar on the date of `serial` below its button, within the screen, or hides it.
void showDatePicker(DatePicker* picker, const QWidget* button, bool visible, double serial);

}  // namespace ostravel
