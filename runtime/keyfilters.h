// Key filters of the numeric and symbol text boxes: the key code comes back, 0 to swallow it.
#pragma once

namespace ostravel {

int testnumber(int keyAscii);
int testtext(int keyAscii);

}  // namespace ostravel
