#include "store/queryshape.h"

#include <QSet>
#include <vector>

namespace ostravel {

namespace {

struct Token {
    enum class Type { Word, Name, Text, Open, Close, Comma, Other } type;
    qsizetype begin;
    qsizetype end;
    QString word;  // lower case, for words
};

bool isWordChar(QChar c) {
    return c.isLetterOrNumber() || c == QLatin1Char('_');
}

qsizetype closingOf(const QString& sql, qsizetype start, QChar close) {
    for (qsizetype i = start + 1; i < sql.size(); ++i) {
        if (sql.at(i) != close)
            continue;
        if (close != QLatin1Char(']') && i + 1 < sql.size() && sql.at(i + 1) == close) {
            ++i;
            continue;
        }
        return i + 1;
    }
    return sql.size();
}

std::vector<Token> tokenize(const QString& sql) {
    std::vector<Token> tokens;
    qsizetype i = 0;
    while (i < sql.size()) {
        const QChar c = sql.at(i);
        if (c.isSpace()) {
            ++i;
        } else if (isWordChar(c)) {
            qsizetype end = i;
            while (end < sql.size() && isWordChar(sql.at(end))) ++end;
            tokens.push_back({Token::Type::Word, i, end, sql.mid(i, end - i).toLower()});
            i = end;
        } else if (c == QLatin1Char('\'')) {
            const qsizetype end = closingOf(sql, i, c);
            tokens.push_back({Token::Type::Text, i, end, {}});
            i = end;
        } else if (c == QLatin1Char('[') || c == QLatin1Char('"') || c == QLatin1Char('`')) {
            const QChar close = c == QLatin1Char('[') ? QLatin1Char(']') : c;
            const qsizetype end = closingOf(sql, i, close);
            tokens.push_back({Token::Type::Name, i, end, {}});
            i = end;
        } else {
            const Token::Type type = c == QLatin1Char('(')   ? Token::Type::Open
                                     : c == QLatin1Char(')') ? Token::Type::Close
                                     : c == QLatin1Char(',') ? Token::Type::Comma
                                                             : Token::Type::Other;
            tokens.push_back({type, i, i + 1, {}});
            ++i;
        }
    }
    return tokens;
}

QString unquoted(const QString& name) {
    if (name.size() >= 2 &&
        (name.front() == QLatin1Char('[') || name.front() == QLatin1Char('"') || name.front() == QLatin1Char('`')))
        return name.mid(1, name.size() - 2);
    return name;
}

bool isClauseWord(const QString& word) {
    static const QSet<QString> words = {
        QStringLiteral("where"),  QStringLiteral("order"), QStringLiteral("group"),     QStringLiteral("having"),
        QStringLiteral("limit"),  QStringLiteral("join"),  QStringLiteral("inner"),     QStringLiteral("left"),
        QStringLiteral("right"),  QStringLiteral("full"),  QStringLiteral("cross"),     QStringLiteral("natural"),
        QStringLiteral("outer"),  QStringLiteral("union"), QStringLiteral("intersect"), QStringLiteral("except"),
        QStringLiteral("window"), QStringLiteral("on"),    QStringLiteral("using")};
    return words.contains(word);
}

bool makesReadOnly(const QString& word) {
    static const QSet<QString> words = {QStringLiteral("join"),  QStringLiteral("group"),     QStringLiteral("having"),
                                        QStringLiteral("union"), QStringLiteral("intersect"), QStringLiteral("except"),
                                        QStringLiteral("window")};
    return words.contains(word);
}

bool isAggregate(const QString& word) {
    static const QSet<QString> words = {QStringLiteral("sum"),         QStringLiteral("avg"), QStringLiteral("count"),
                                        QStringLiteral("min"),         QStringLiteral("max"), QStringLiteral("total"),
                                        QStringLiteral("group_concat")};
    return words.contains(word);
}

bool isNameToken(const Token& token) {
    return token.type == Token::Type::Word || token.type == Token::Type::Name;
}

}  // namespace

QString quotedName(const QString& name) {
    QString inner = name;
    inner.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return QLatin1Char('"') + inner + QLatin1Char('"');
}

QueryShape analyseSource(const QString& tableNameOrSql) {
    QueryShape shape;
    const QString sql = tableNameOrSql.trimmed();
    const std::vector<Token> tokens = tokenize(sql);
    if (tokens.empty() || tokens.front().word != QLatin1String("select")) {
        QString name = sql;
        while (name.endsWith(QLatin1Char(';'))) name.chop(1);
        shape.isTable = true;
        shape.updatable = true;
        shape.table = unquoted(name.trimmed());
        shape.source = quotedName(shape.table);
        shape.qualifier = shape.source;
        shape.columns = QStringLiteral("*");
        shape.fromClause = QStringLiteral("from ") + shape.source;
        return shape;
    }

    const auto text = [&](const Token& token) { return sql.mid(token.begin, token.end - token.begin); };
    std::size_t from = 0;
    int depth = 0;
    for (std::size_t k = 1; k < tokens.size() && from == 0; ++k) {
        const Token& token = tokens[k];
        if (token.type == Token::Type::Open)
            ++depth;
        else if (token.type == Token::Type::Close)
            --depth;
        else if (depth == 0 && token.word == QLatin1String("from"))
            from = k;
        else if (token.word == QLatin1String("distinct") ||
                 (isAggregate(token.word) && k + 1 < tokens.size() && tokens[k + 1].type == Token::Type::Open))
            return shape;
    }
    if (from < 2 || from + 1 >= tokens.size() || !isNameToken(tokens[from + 1]))
        return shape;

    const Token& table = tokens[from + 1];
    std::size_t next = from + 2;
    const Token* alias = nullptr;
    if (next + 1 < tokens.size() && tokens[next].word == QLatin1String("as") && isNameToken(tokens[next + 1])) {
        alias = &tokens[next + 1];
        next += 2;
    } else if (next < tokens.size() && isNameToken(tokens[next]) && !isClauseWord(tokens[next].word)) {
        alias = &tokens[next];
        ++next;
    }
    bool inFromList = true;
    depth = 0;
    for (std::size_t k = next; k < tokens.size(); ++k) {
        const Token& token = tokens[k];
        if (token.type == Token::Type::Open)
            ++depth;
        else if (token.type == Token::Type::Close)
            --depth;
        if (depth != 0)
            continue;
        if (makesReadOnly(token.word) || (inFromList && token.type == Token::Type::Comma))
            return shape;
        if (isClauseWord(token.word))
            inFromList = false;
    }

    shape.updatable = true;
    shape.table = unquoted(text(table));
    shape.source = sql.mid(table.begin, (alias != nullptr ? alias->end : table.end) - table.begin);
    shape.qualifier = alias != nullptr ? text(*alias) : text(table);
    shape.columns = sql.mid(tokens[1].begin, tokens[from].begin - tokens[1].begin).trimmed();
    shape.fromClause = sql.mid(tokens[from].begin);
    return shape;
}

}  // namespace ostravel
