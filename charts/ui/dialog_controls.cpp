#include "charts/ui/dialog_controls.h"

#include "charts/picture_box.h"

namespace ostravel {

QPushButton* makeColourSquare(const QString& name, QWidget* parent) {
    auto* square = new QPushButton(parent);
    square->setObjectName(name);
    square->setFixedSize(40, 20);
    return square;
}

void showColour(QPushButton* square, std::int32_t colour) {
    // The focus shows as a thicker frame, so that the keyboard can find the square.
    square->setStyleSheet(QStringLiteral("QPushButton { background: %1; border: 1px solid gray; }"
                                         "QPushButton:focus { border: 2px solid palette(highlight); }")
                              .arg(programColour(colour).name()));
}

QPushButton* makeDialogButton(const char* name, const QString& caption, QWidget* parent) {
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    return button;
}

}  // namespace ostravel
