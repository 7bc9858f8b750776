// The main frame's menu, the program's table of contents: captions, names, short-cut keys,
// and whether the screen an item opens is part of this build yet.
#pragma once

#include <QList>
#include <QString>

namespace ostravel {

struct MenuItem {
    QString caption;
    QString name;
    QString shortcut;       // as QKeySequence reads it, "Ctrl+L"; empty for none
    bool available = true;  // false: the screen it opens is not built yet, so the item is disabled
    QList<MenuItem> children;
    bool separator() const { return caption.isEmpty(); }
};

// Top-level menus, each with its items in order.
const QList<MenuItem>& menuTree();

// Every item with a short-cut key, depth first, for the keyboard help.
QList<MenuItem> menuShortcuts();

}  // namespace ostravel
