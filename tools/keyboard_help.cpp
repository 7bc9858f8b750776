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
    // The chart window, its drawing tools and its dialogs.
    rows.append({
        {QStringLiteral("+ or = (chart)"), QStringLiteral("Zoom In: the bars wider apart")},
        {QStringLiteral("- (chart)"), QStringLiteral("Zoom Out: the bars closer together")},
        {QStringLiteral("Mouse wheel (chart)"), QStringLiteral("Scrolls back and forth in time")},
        {QStringLiteral("Ctrl+End (chart)"), QStringLiteral("Goes to the newest bars")},
        {QStringLiteral("Ctrl+Home (chart)"), QStringLiteral("Goes to the oldest bars")},
        {QStringLiteral("Ctrl+Left, Ctrl+Right, Ctrl+PgUp, Ctrl+PgDn (chart)"), QStringLiteral("Redraw")},
        {QStringLiteral("Left press (chart)"), QStringLiteral("Crosshair and the price at the pointer")},
        {QStringLiteral("Second press within 1.5 s (chart)"), QStringLiteral("The bar's data beside the price")},
        {QStringLiteral("Drag a red line (chart)"), QStringLiteral("Moves the divider between two panes")},
        {QStringLiteral("Menu key or Shift+F10 (chart)"), QStringLiteral("The chart's pop-up menu")},
        {QStringLiteral("Alt+T (chart)"), QStringLiteral("Tools: Options, Indicators, Rule on Chart")},
        {QStringLiteral("Alt+D (chart)"), QStringLiteral("Drawing Tools")},
        {QStringLiteral("Click, click (drawing)"), QStringLiteral("The points the box at the top left asks for")},
        {QStringLiteral("Esc or right click - Cancel Drawing (drawing)"),
         QStringLiteral("Ends the tool without a figure")},
        {QStringLiteral("Enter (Chart Options field)"), QStringLiteral("Takes the value within its limits")},
        {QStringLiteral("Esc (Chart Options field)"), QStringLiteral("Puts the stored value back")},
        {QStringLiteral("Enter or double click (Indicators list)"),
         QStringLiteral("Edits the row, picks the indicator")},
        {QStringLiteral("Enter / Esc (Indicators editor)"), QStringLiteral("Takes / drops the edit")},
    });
    return rows;
}

}  // namespace ostravel
