// What the chart's dialogs share: a colour square, a flat button filled with a colour of
// the program that a click or the keyboard presses, and a button that Enter leaves alone.
#pragma once

#include <QDialog>
#include <QPushButton>
#include <cstdint>

namespace ostravel {

QPushButton* makeColourSquare(const QString& name, QWidget* parent);
void showColour(QPushButton* square, std::int32_t colour);
// Enter in a field of the dialog belongs to the field, not to a default button.
QPushButton* makeDialogButton(const char* name, const QString& caption, QWidget* parent);

// A dialog's state loaded under its window: its own questions centre on the dialog, and its
// unload closes it.
template <typename State>
void loadInto(QDialog* dialog, State& state) {
    state.owner = dialog;
    state.unload = [dialog] { dialog->accept(); };
    state.Form_Load();
}

}  // namespace ostravel
