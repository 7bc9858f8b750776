#include "tools/calculator.h"

#include <gtest/gtest.h>

#include <QSet>
#include <QStringList>

#include "context/menu_tree.h"
#include "tools/keyboard_help.h"

namespace ostravel {
namespace {

TEST(Calculator, KeySequences) {
    struct Case {
        const char* keys;  // blank separated
        const char* display;
    };
    const Case cases[] = {
        {"", "0"},
        {"1 2 + 3 0 =", "42"},
        {"7 - 9 =", "-2"},
        {"6 * 7 =", "42"},
        {"1 / 4 =", "0.25"},
        {"1 0 / 3 =", "3.33333333333333"},
        {"2 + 3 * 4 =", "20"},     // left to right, as a pocket calculator
        {"2 + * 5 =", "10"},       // a second operator replaces the first
        {"1 . . 5 + 1 =", "2.5"},  // one point only
        {"9 BS 8", "8"},
        {"5 +/- + 2 =", "-3"},
        {"1 + 2 CE 5 =", "6"},
        {"1 / 0 =", "Cannot divide by zero"},
        {"1 / 0 = 5 + 1 =", "Cannot divide by zero"},  // only C leaves the error
        {"1 / 0 = C 3", "3"},
        {"0 . 1 + 0 . 2 =", "0.3"},
        {"1 2 3 4 5 6 7 8 * 1 0 0 =", "1234567800"},
    };
    for (const Case& c : cases) {
        Calculator calc;
        for (const QString& key : QString::fromLatin1(c.keys).split(QLatin1Char(' '), Qt::SkipEmptyParts))
            calc.press(key);
        EXPECT_EQ(calc.display(), QString::fromLatin1(c.display)) << c.keys;
    }
}

TEST(KeyboardHelp, ListsEveryMenuShortcutOnceAndNoKeyTwice) {
    const QList<KeyHelpRow> rows = keyboardHelpRows();
    QSet<QString> keys;
    for (const KeyHelpRow& row : rows) {
        EXPECT_FALSE(keys.contains(row.key)) << row.key.toStdString();
        keys.insert(row.key);
        EXPECT_FALSE(row.action.contains(QLatin1Char('&'))) << row.action.toStdString();
    }
    for (const MenuItem& item : menuShortcuts()) EXPECT_TRUE(keys.contains(item.shortcut)) << item.name.toStdString();
}

}  // namespace
}  // namespace ostravel
