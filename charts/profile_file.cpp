#include "charts/profile_file.h"

#include <QFile>

#include "safety/whole_file.h"

namespace ostravel {

namespace {

std::optional<QString> sectionName(const QString& line) {
    const QString trimmed = line.trimmed();
    if (!trimmed.startsWith(QLatin1Char('[')))
        return std::nullopt;
    const qsizetype close = trimmed.indexOf(QLatin1Char(']'));
    return trimmed.mid(1, close < 0 ? -1 : close - 1).trimmed();
}

bool sameName(const QString& a, const QString& b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

}  // namespace

ProfileFile ProfileFile::read(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return ProfileFile();
    return ProfileFile(file.readAll());
}

ProfileFile::ProfileFile(const QByteArray& text) {
    if (text.isEmpty())
        return;
    m_lines = QString::fromLatin1(text).split(QLatin1Char('\n'));
    // The piece behind the last line end is no line.
    if (m_lines.back().isEmpty())
        m_lines.removeLast();
    for (QString& line : m_lines)
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
}

std::optional<std::pair<QString, QString>> ProfileFile::entry(const QString& line) {
    const qsizetype equals = line.indexOf(QLatin1Char('='));
    if (equals < 0 || sectionName(line))
        return std::nullopt;
    return std::pair{line.left(equals).trimmed(), line.mid(equals + 1).trimmed()};
}

std::optional<ProfileFile::Section> ProfileFile::find(const QString& section) const {
    for (qsizetype i = 0; i < m_lines.size(); ++i) {
        const std::optional<QString> name = sectionName(m_lines.at(i));
        if (!name || !sameName(*name, section))
            continue;
        Section found{i, i};
        for (qsizetype j = i + 1; j < m_lines.size() && !sectionName(m_lines.at(j)); ++j)
            if (entry(m_lines.at(j)))
                found.lastEntry = j;
        return found;
    }
    return std::nullopt;
}

std::optional<QString> ProfileFile::value(const QString& section, const QString& key) const {
    const std::optional<Section> found = find(section);
    if (!found)
        return std::nullopt;
    for (qsizetype j = found->header + 1; j <= found->lastEntry; ++j)
        if (const auto e = entry(m_lines.at(j)); e && sameName(e->first, key))
            return e->second;
    return std::nullopt;
}

QStringList ProfileFile::keys(const QString& section) const {
    QStringList names;
    if (const std::optional<Section> found = find(section))
        for (qsizetype j = found->header + 1; j <= found->lastEntry; ++j)
            if (const auto e = entry(m_lines.at(j)))
                names << e->first;
    return names;
}

void ProfileFile::setValue(const QString& section, const QString& key, const QString& value) {
    const std::optional<Section> found = find(section);
    if (!found) {
        m_lines << QLatin1Char('[') + section + QLatin1Char(']') << key + QLatin1Char('=') + value;
        return;
    }
    for (qsizetype j = found->header + 1; j <= found->lastEntry; ++j) {
        if (const auto e = entry(m_lines.at(j)); e && sameName(e->first, key)) {
            m_lines[j] = e->first + QLatin1Char('=') + value;
            return;
        }
    }
    m_lines.insert(found->lastEntry + 1, key + QLatin1Char('=') + value);
}

QByteArray ProfileFile::text() const {
    QByteArray bytes;
    for (const QString& line : m_lines) bytes += line.toLatin1() + "\r\n";
    return bytes;
}

void ProfileFile::write(const QString& path, const QString& source) const {
    replaceFile(path, text(), source);
}

}  // namespace ostravel
