// The help a dialog shows below its buttons: the help text, 3000 twips high, with some room below
// it, hidden until asked for; the dialog grows by the panel while it shows.
#pragma once

#include <QString>
#include <QWidget>

class QTextBrowser;

namespace ostravel {

class ErrorReporter;

class HelpPanel : public QWidget {
public:
    // `file` is under the program's folder; a file that can't be read is reported under `place`.
    HelpPanel(QWidget* parent, int roomBelowTwips, ErrorReporter& reporter, QString place, QString file);

    // Reads the help text now, once.
    void load();
    // Shows the panel, reading its text the first time, or hides it.
    void mirror(bool shown);

private:
    QTextBrowser* m_RichTextBox1;
    ErrorReporter& m_reporter;
    const QString m_place;
    const QString m_file;
    bool m_loaded = false;
};

}  // namespace ostravel
