// FRM_KEYBOARD_HELP: the table of the program's short-cut keys.
#pragma once

#include <QWidget>

namespace ostravel {

class FRM_KEYBOARD_HELP : public QWidget {
    Q_OBJECT
public:
    explicit FRM_KEYBOARD_HELP(QWidget* parent = nullptr);
};

}  // namespace ostravel
