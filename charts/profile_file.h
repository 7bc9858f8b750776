// A sectioned profile file ("[section]" and "key=value" lines, CR LF) as the chart's settings
// calls read and change it: names compare without regard to case, an absent key is added at the
// end of its section, an absent section at the end of the file.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <optional>

namespace ostravel {

class ProfileFile {
public:
    // The file's lines; a file that is missing or can't be read is an empty profile.
    static ProfileFile read(const QString& path);
    explicit ProfileFile(const QByteArray& text = {});

    // The value behind the first "=", blanks around it taken off; nothing when the section or
    // the key is absent.
    std::optional<QString> value(const QString& section, const QString& key) const;
    // The key names of the section in file order.
    QStringList keys(const QString& section) const;
    void setValue(const QString& section, const QString& key, const QString& value);

    // 8-bit text, every line ended by CR LF.
    QByteArray text() const;
    // Puts the text in place of the file in one step; raises when that fails, and the file stays
    // as it was.
    void write(const QString& path, const QString& source) const;

private:
    struct Section {
        qsizetype header = -1;     // line of "[name]"
        qsizetype lastEntry = -1;  // last "key=value" line, or the header when there is none
    };
    std::optional<Section> find(const QString& section) const;
    // The name and value of a "key=value" line; nothing for any other line.
    static std::optional<std::pair<QString, QString>> entry(const QString& line);

    QStringList m_lines;
};

}  // namespace ostravel
