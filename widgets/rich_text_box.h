// RichTextBox.LoadFile: a help text from the program's folder into a text browser.
#pragma once

#include <QString>

class QTextBrowser;

namespace ostravel {

// Raises 75 when the file can't be read.
void loadRichText(QTextBrowser* box, const QString& path);

}  // namespace ostravel
