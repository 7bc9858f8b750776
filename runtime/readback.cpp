#include "runtime/readback.h"

#include "runtime/vbmath.h"

namespace ostravel {

void ReadBack::follow(const QString& text) {
    if (m_read && text == m_text)
        return;
    m_text = text;
    m_read = true;
    m_val.reset();
    m_number.reset();
}

// A read that raises keeps no number, so the next read of the same text raises again.
double ReadBack::val(const QString& text) {
    follow(text);
    if (!m_val)
        m_val = Val(text);
    return *m_val;
}

double ReadBack::number(const QString& text) {
    follow(text);
    if (!m_number)
        m_number = textToDouble(text);
    return *m_number;
}

}  // namespace ostravel
