// The lines of 8-bit text as the program's line reads see them: a line ends at CR LF, at CR or
// at LF, so that "a\r\r\n" is "a" and an empty line.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

namespace ostravel {

class TextLines {
public:
    explicit TextLines(QByteArrayView text) : m_text(text) {}

    // The next line into `line`; false at the end of the text.
    bool next(QByteArrayView& line) {
        if (m_pos >= m_text.size())
            return false;
        qsizetype end = m_pos;
        while (end < m_text.size() && m_text[end] != '\r' && m_text[end] != '\n') ++end;
        line = m_text.sliced(m_pos, end - m_pos);
        m_pos = end;
        if (m_pos < m_text.size() && m_text[m_pos] == '\r')
            ++m_pos;
        else if (m_pos < m_text.size())
            ++m_pos;  // a bare LF
        else
            return true;
        if (m_text[end] == '\r' && m_pos < m_text.size() && m_text[m_pos] == '\n')
            ++m_pos;
        return true;
    }

private:
    QByteArrayView m_text;
    qsizetype m_pos = 0;
};

}  // namespace ostravel
