// The rows of the keyboard help: the menu's short-cut keys and the keys of the screens.
#pragma once

#include <QList>
#include <QString>

namespace ostravel {

struct KeyHelpRow {
    QString key;
    QString action;
};

QList<KeyHelpRow> keyboardHelpRows();

}  // namespace ostravel
