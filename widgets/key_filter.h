// The KeyPress filter of the program's text boxes on a Qt widget: each typed character goes
// through a filter such as testnumber; a code that comes back 0 is swallowed, one that comes
// back changed (testtext's capitals) is typed in its place. Keys that type nothing pass.
#pragma once

#include <QObject>

namespace ostravel {

class KeyFilter : public QObject {
    Q_OBJECT
public:
    using Filter = int (*)(int keyAscii);

    // Filters the keys of `box` for as long as it lives.
    static KeyFilter* install(QObject* box, Filter filter);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    KeyFilter(Filter filter, QObject* parent);

    Filter m_filter;
    bool m_retyping = false;
};

}  // namespace ostravel
