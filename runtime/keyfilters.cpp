#include "runtime/keyfilters.h"

#include <QString>

namespace ostravel {

namespace {

// Control keys (backspace among them) pass; anything outside the set is swallowed.
int filterKey(int keyAscii, QLatin1StringView allowed) {
    if (keyAscii <= 26)
        return keyAscii;
    if (keyAscii < 128 && allowed.contains(QLatin1Char(static_cast<char>(keyAscii))))
        return keyAscii;
    return 0;
}

}  // namespace

// Kept: nothing limits the points, so "1.2.3" can be typed and Val reads it as 1.2.
int testnumber(int keyAscii) {
    return filterKey(keyAscii, QLatin1StringView("0123456789."));
}

int testtext(int keyAscii) {
    if (keyAscii >= 'a' && keyAscii <= 'z')
        keyAscii -= 'a' - 'A';
    return filterKey(keyAscii, QLatin1StringView("ABCDEFGHIJKLMNOPQRSTUVWXYZ.^"));
}

}  // namespace ostravel
