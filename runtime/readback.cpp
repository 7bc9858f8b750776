#include "runtime/readback.h"

#include "runtime/vbmath.h"

namespace ostravel {

void ReadBack::follow(const QString& text) {
    // The text it was read from, still shared with the box, has not changed: a box is written
    // over only once it holds its own copy.
    const bool shared = text.constData() == m_text.constData() && text.size() == m_text.size();
    if (m_read && (shared || text == m_text))
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
