#include "store/jetsql.h"

#include <QRegularExpression>

#include "runtime/vbdate.h"
#include "store/fieldvalue.h"

namespace ostravel {

namespace {

bool isWordChar(QChar c) {
    return c.isLetterOrNumber() || c == QLatin1Char('_');
}

QString quoted(const QString& text) {
    QString result = text;
    result.replace(QLatin1Char('\''), QLatin1String("''"));
    return QLatin1Char('\'') + result + QLatin1Char('\'');
}

// The text of a literal that opens at `start` with `quote`; a doubled quote stands for one.
QString readLiteral(const QString& sql, qsizetype start, QChar quote, qsizetype* end) {
    QString value;
    qsizetype i = start + 1;
    while (i < sql.size()) {
        if (sql.at(i) == quote) {
            if (i + 1 < sql.size() && sql.at(i + 1) == quote) {
                value += quote;
                i += 2;
                continue;
            }
            ++i;
            break;
        }
        value += sql.at(i++);
    }
    *end = i;
    return value;
}

void appendLikeLiteral(QChar c, QString& pattern, bool& escaped) {
    if (c == QLatin1Char('%') || c == QLatin1Char('_') || c == QLatin1Char('\\')) {
        pattern += QLatin1Char('\\');
        escaped = true;
    }
    pattern += c;
}

// Jet's wildcards in SQLite's terms; [x] holds one character literally.
QString likeCondition(const QString& jetPattern) {
    QString pattern;
    bool escaped = false;
    for (qsizetype i = 0; i < jetPattern.size(); ++i) {
        const QChar c = jetPattern.at(i);
        if (c == QLatin1Char('*')) {
            pattern += QLatin1Char('%');
        } else if (c == QLatin1Char('?')) {
            pattern += QLatin1Char('_');
        } else if (c == QLatin1Char('[') && i + 2 < jetPattern.size() && jetPattern.at(i + 2) == QLatin1Char(']')) {
            appendLikeLiteral(jetPattern.at(i + 1), pattern, escaped);
            i += 2;
        } else {
            appendLikeLiteral(c, pattern, escaped);
        }
    }
    return escaped ? quoted(pattern) + QStringLiteral(" escape '\\'") : quoted(pattern);
}

// Jet reads #1/2/2005# month first, unless the first number can't be a month.
std::optional<double> jetDateLiteral(const QString& text) {
    static const QRegularExpression numeric(QStringLiteral("^\\s*(\\d{1,2})/(\\d{1,2})/(\\d{2,4})(.*)$"));
    const QRegularExpressionMatch match = numeric.match(text);
    if (match.hasMatch()) {
        int month = match.captured(1).toInt();
        int day = match.captured(2).toInt();
        if (month > 12)
            std::swap(month, day);
        int year = match.captured(3).toInt();
        if (match.captured(3).size() <= 2)
            year += year < 30 ? 2000 : 1900;
        const QDate date(year, month, day);
        if (!date.isValid())
            return std::nullopt;
        return parseDate(date.toString(QStringLiteral("yyyy-MM-dd")) + match.captured(4));
    }
    return parseDate(text.trimmed());
}

}  // namespace

QString jetToSqlite(const QString& sql) {
    QString out;
    out.reserve(sql.size() + 16);
    bool afterLike = false;
    qsizetype i = 0;
    while (i < sql.size()) {
        const QChar c = sql.at(i);
        if (c == QLatin1Char('\'') || c == QLatin1Char('"')) {
            qsizetype end = 0;
            const QString value = readLiteral(sql, i, c, &end);
            out += afterLike ? likeCondition(value) : quoted(value);
            i = end;
            afterLike = false;
        } else if (c == QLatin1Char('[')) {
            const qsizetype close = sql.indexOf(QLatin1Char(']'), i);
            const qsizetype end = close < 0 ? sql.size() : close + 1;
            out += sql.mid(i, end - i);
            i = end;
            afterLike = false;
        } else if (c == QLatin1Char('#')) {
            const qsizetype close = sql.indexOf(QLatin1Char('#'), i + 1);
            const std::optional<double> serial =
                close < 0 ? std::nullopt : jetDateLiteral(sql.mid(i + 1, close - i - 1));
            if (serial) {
                out += quoted(isoDateText(*serial));
                i = close + 1;
            } else {
                out += c;
                ++i;
            }
            afterLike = false;
        } else if (isWordChar(c)) {
            qsizetype end = i;
            while (end < sql.size() && isWordChar(sql.at(end))) ++end;
            const QString word = sql.mid(i, end - i);
            const QString lower = word.toLower();
            if (lower == QLatin1String("true"))
                out += QStringLiteral("-1");
            else if (lower == QLatin1String("false"))
                out += QStringLiteral("0");
            else
                out += word;
            i = end;
            if (lower == QLatin1String("delete")) {
                qsizetype next = i;
                while (next < sql.size() && sql.at(next).isSpace()) ++next;
                if (next < sql.size() && sql.at(next) == QLatin1Char('*')) {
                    i = next + 1;
                    if (i < sql.size() && !sql.at(i).isSpace())
                        out += QLatin1Char(' ');
                }
            }
            afterLike = lower == QLatin1String("like");
        } else {
            out += c;
            ++i;
            if (!c.isSpace())
                afterLike = false;
        }
    }
    return out;
}

}  // namespace ostravel
