#include "runtime/keyfilters.h"

#include <gtest/gtest.h>

namespace ostravel {
namespace {

struct KeyCase {
    int key;
    int number;  // what testnumber gives
    int text;    // what testtext gives
};

TEST(KeyFilters, PassSwallowOrCapitalise) {
    const KeyCase cases[] = {
        {8, 8, 8},                                                     // backspace passes both
        {13, 13, 13},                                                  // Enter is a control key
        {26, 26, 26},                                                  // the last control code that passes
        {27, 0, 0},                                                    // Escape is above 26 and in no set
        {'0', '0', 0},                                                 // digits: numbers only
        {'9', '9', 0}, {'.', '.', '.'},                                // the point passes both: index symbols need it
        {'-', 0, 0},                                                   // no minus in a numeric box
        {'+', 0, 0},   {',', 0, 0},     {' ', 0, 0},   {'a', 0, 'A'},  // lower case arrives as upper case
        {'z', 0, 'Z'}, {'Q', 0, 'Q'},   {'^', 0, '^'},                 // the circumflex of index symbols
        {'&', 0, 0},   {233, 0, 0},                                    // a letter outside ASCII
    };
    for (const KeyCase& c : cases) {
        EXPECT_EQ(testnumber(c.key), c.number) << "key " << c.key;
        EXPECT_EQ(testtext(c.key), c.text) << "key " << c.key;
    }
}

TEST(KeyFilters, KeptSeveralPointsPassTheNumberFilter) {
    int passed = 0;
    for (char c : std::string("1.2.3")) passed += testnumber(c) != 0;
    EXPECT_EQ(passed, 5);
}

}  // namespace
}  // namespace ostravel
