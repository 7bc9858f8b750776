#include "context/rtfreader.h"

#include <QStringList>
#include <vector>

namespace ostravel {

namespace {

struct Style {
    bool bold = false;
    bool italic = false;
    bool underline = false;
    int halfPoints = 24;
    bool skip = false;  // a destination whose text is not shown (font table, pictures, ...)
    int unicodeSkip = 1;
};

bool operator==(const Style& a, const Style& b) {
    return a.bold == b.bold && a.italic == b.italic && a.underline == b.underline && a.halfPoints == b.halfPoints;
}

const QStringList kSkippedDestinations = {QStringLiteral("fonttbl"),      QStringLiteral("colortbl"),
                                          QStringLiteral("stylesheet"),   QStringLiteral("info"),
                                          QStringLiteral("pict"),         QStringLiteral("object"),
                                          QStringLiteral("header"),       QStringLiteral("footer"),
                                          QStringLiteral("listtable"),    QStringLiteral("listoverridetable"),
                                          QStringLiteral("generator"),    QStringLiteral("xmlnstbl"),
                                          QStringLiteral("rsidtbl"),      QStringLiteral("themedata"),
                                          QStringLiteral("latentstyles"), QStringLiteral("datastore"),
                                          QStringLiteral("filetbl")};

class HtmlWriter {
public:
    void text(const QString& t, const Style& style) {
        if (t.isEmpty())
            return;
        if (!m_open || !(m_style == style)) {
            closeSpan();
            QString css = QStringLiteral("font-size:%1pt;").arg(style.halfPoints / 2.0);
            if (style.bold)
                css += QStringLiteral("font-weight:bold;");
            if (style.italic)
                css += QStringLiteral("font-style:italic;");
            if (style.underline)
                css += QStringLiteral("text-decoration:underline;");
            m_paragraph += QStringLiteral("<span style=\"") + css + QStringLiteral("\">");
            m_style = style;
            m_open = true;
        }
        m_paragraph += t.toHtmlEscaped();
    }
    void lineBreak() {
        closeSpan();
        m_paragraph += QStringLiteral("<br/>");
    }
    void paragraph() {
        closeSpan();
        // An empty paragraph is a blank line in the text; the browser would collapse it.
        m_html += QStringLiteral("<p>") + (m_paragraph.isEmpty() ? QStringLiteral("&nbsp;") : m_paragraph) +
                  QStringLiteral("</p>\n");
        m_paragraph.clear();
    }
    QString finish() {
        if (!m_paragraph.isEmpty())
            paragraph();
        return QStringLiteral("<html><body>\n") + m_html + QStringLiteral("</body></html>\n");
    }

private:
    void closeSpan() {
        if (m_open)
            m_paragraph += QStringLiteral("</span>");
        m_open = false;
    }
    QString m_html;
    QString m_paragraph;
    Style m_style;
    bool m_open = false;
};

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

}  // namespace

QString rtfToHtml(const QByteArray& rtf) {
    HtmlWriter out;
    if (!rtf.startsWith("{\\rtf")) {
        for (const QString& line : QString::fromUtf8(rtf).split(QLatin1Char('\n'))) {
            out.text(line, Style{});
            out.paragraph();
        }
        return out.finish();
    }

    std::vector<Style> stack{Style{}};
    QString pending;    // text of the current style not yet written
    int skipChars = 0;  // characters to drop after a \u escape
    auto flush = [&] {
        out.text(pending, stack.back());
        pending.clear();
    };
    auto emitChar = [&](QChar c) {
        if (stack.back().skip)
            return;
        if (skipChars > 0) {
            --skipChars;
            return;
        }
        pending += c;
    };

    const qsizetype n = rtf.size();
    for (qsizetype i = 0; i < n; ++i) {
        const char c = rtf[i];
        if (c == '{') {
            flush();
            stack.push_back(stack.back());
        } else if (c == '}') {
            flush();
            if (stack.size() > 1)
                stack.pop_back();
        } else if (c == '\\' && i + 1 < n) {
            const char next = rtf[i + 1];
            if (next == '\\' || next == '{' || next == '}') {
                emitChar(QLatin1Char(next));
                ++i;
            } else if (next == '\'' && i + 3 < n) {
                bool ok = false;
                const int code = rtf.mid(i + 2, 2).toInt(&ok, 16);
                if (ok)
                    emitChar(QChar(code));  // the help files are Latin-1
                i += 3;
            } else if (next == '*') {
                stack.back().skip = true;
                ++i;
            } else if (next == '~') {
                emitChar(QChar(0xA0));
                ++i;
            } else if (isLetter(next)) {
                qsizetype j = i + 1;
                while (j < n && isLetter(rtf[j])) ++j;
                const QString word = QString::fromLatin1(rtf.mid(i + 1, j - i - 1));
                bool hasParam = false;
                int param = 0;
                qsizetype k = j;
                if (k < n && (rtf[k] == '-' || isDigit(rtf[k]))) {
                    ++k;
                    while (k < n && isDigit(rtf[k])) ++k;
                    param = rtf.mid(j, k - j).toInt();
                    hasParam = true;
                }
                if (k < n && rtf[k] == ' ')
                    ++k;  // the blank that ends a control word belongs to it
                i = k - 1;

                Style& st = stack.back();
                if (kSkippedDestinations.contains(word)) {
                    st.skip = true;
                } else if (word == QLatin1String("par")) {
                    if (!st.skip) {
                        flush();
                        out.paragraph();
                    }
                } else if (word == QLatin1String("line")) {
                    if (!st.skip) {
                        flush();
                        out.lineBreak();
                    }
                } else if (word == QLatin1String("bullet")) {
                    emitChar(QChar(0x2022));
                } else if (word == QLatin1String("tab")) {
                    emitChar(QLatin1Char('\t'));
                } else if (word == QLatin1String("u") && hasParam) {
                    emitChar(QChar(param < 0 ? param + 65536 : param));
                    skipChars = st.unicodeSkip;
                } else if (word == QLatin1String("uc")) {
                    st.unicodeSkip = param;
                } else {
                    flush();
                    const bool on = !hasParam || param != 0;
                    if (word == QLatin1String("b"))
                        st.bold = on;
                    else if (word == QLatin1String("i"))
                        st.italic = on;
                    else if (word == QLatin1String("ul"))
                        st.underline = on;
                    else if (word == QLatin1String("ulnone"))
                        st.underline = false;
                    else if (word == QLatin1String("fs") && hasParam)
                        st.halfPoints = param;
                    else if (word == QLatin1String("plain")) {
                        st.bold = st.italic = st.underline = false;
                        st.halfPoints = 24;
                    }
                }
            } else {
                ++i;  // an escaped symbol we don't show
            }
        } else if (c == '\r' || c == '\n') {
            continue;
        } else {
            emitChar(QLatin1Char(c));
        }
    }
    flush();
    return out.finish();
}

}  // namespace ostravel
