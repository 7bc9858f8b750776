// The controls the chart's dialogs share: a colour square, a flat button filled with a colour of
// the program that a click or the keyboard presses, and a button that Enter leaves alone.
#pragma once

#include <QPushButton>
#include <cstdint>

namespace ostravel {

QPushButton* makeColourSquare(const QString& name, QWidget* parent);
void showColour(QPushButton* square, std::int32_t colour);
// Enter in a field of the dialog belongs to the field, not to a default button.
QPushButton* makeDialogButton(const char* name, const QString& caption, QWidget* parent);

}  // namespace ostravel
