// How logic asks for a screen: by the screen's name, as the program's procedures "show" one.
// The user interface registers an opener for each screen it has; without one (in tests, or
// for a screen not built yet) the request is only recorded.
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <functional>

namespace ostravel {

class Screens {
public:
    using Opener = std::function<void()>;

    void setOpener(const QString& name, Opener opener) { m_openers.insert(name, std::move(opener)); }

    // Shows the screen; a modal one returns when it is closed.
    void show(const QString& name) {
        m_shown << name;
        if (const auto it = m_openers.constFind(name); it != m_openers.constEnd() && *it)
            (*it)();
    }

    // The screens asked for so far, in order.
    const QStringList& shown() const { return m_shown; }

private:
    QHash<QString, Opener> m_openers;
    QStringList m_shown;
};

}  // namespace ostravel
