// A box's text read back as a number, worked out again only when the text has changed: a run
// reads its beginning figures every day and writes them once.
#pragma once

#include <QString>
#include <optional>

namespace ostravel {

class ReadBack {
public:
    // Val of the text.
    double val(const QString& text);
    // CDbl of the text: a text that is no number raises 13, at every read.
    double number(const QString& text);

private:
    void follow(const QString& text);

    QString m_text;
    bool m_read = false;
    std::optional<double> m_val;
    std::optional<double> m_number;
};

}  // namespace ostravel
