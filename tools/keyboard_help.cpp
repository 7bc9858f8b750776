#include "tools/keyboard_help.h"

#include "context/menu_tree.h"

namespace ostravel {

QList<KeyHelpRow> keyboardHelpRows() {
    QList<KeyHelpRow> rows;
    for (const MenuItem& item : menuShortcuts()) {
        QString caption = item.caption.simplified();
        caption.remove(QLatin1Char('&'));
        rows.append({item.shortcut, caption});
    }
    // The navigator and its web view.
    rows.append({
        {QStringLiteral("Tab (navigator)"), QStringLiteral("To the next group heading; Space opens that group")},
        {QStringLiteral("Up / Down (navigator)"), QStringLiteral("Previous / next item")},
        {QStringLiteral("Enter (navigator)"),
         QStringLiteral("Opens the item: its screen, or its page in the web view")},
        {QStringLiteral("Enter (web view's address box)"), QStringLiteral("Goes to the address typed")},
    });
    rows.append({
        {QStringLiteral("Alt + underlined letter"),
         QStringLiteral("Opens that menu; the letter of an item chooses it")},
        {QStringLiteral("Enter (in the stock code box)"), QStringLiteral("Get History of the code")},
        {QStringLiteral("Any key (start screen)"), QStringLiteral("Opens the main window at once")},
        {QStringLiteral("Esc (start screen)"), QStringLiteral("Closes the start screen")},
        {QStringLiteral("Esc (dialogs)"), QStringLiteral("Cancel or Close")},
        {QStringLiteral("Enter (calendar)"), QStringLiteral("OK: takes the date")},
        {QStringLiteral("Tab / Shift+Tab"), QStringLiteral("Next / previous box or button")},
        {QStringLiteral("0-9 . + - * / (calculator)"), QStringLiteral("Digits and the four operations")},
        {QStringLiteral("Enter or = (calculator)"), QStringLiteral("Result")},
        {QStringLiteral("Esc (calculator)"), QStringLiteral("Clear all")},
        {QStringLiteral("Backspace (calculator)"), QStringLiteral("Takes back the last digit")},
    });
    return rows;
}

}  // namespace ostravel
