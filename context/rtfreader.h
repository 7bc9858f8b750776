// A small reader for the rich-text help files: paragraphs, bold, italic, underline, font
// sizes, escaped characters and Unicode; tables, pictures and fonts are passed over.
#pragma once

#include <QByteArray>
#include <QString>

namespace ostravel {

// The document as HTML for a text browser. Text that isn't rich text is shown as it stands.
QString rtfToHtml(const QByteArray& rtf);

}  // namespace ostravel
