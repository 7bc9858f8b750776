#include "widgets/key_filter.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace ostravel {

KeyFilter::KeyFilter(Filter filter, QObject* parent) : QObject(parent), m_filter(filter) {}

KeyFilter* KeyFilter::install(QObject* box, Filter filter) {
    auto* keyFilter = new KeyFilter(filter, box);
    box->installEventFilter(keyFilter);
    return keyFilter;
}

bool KeyFilter::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || m_retyping)
        return false;
    auto* key = static_cast<QKeyEvent*>(event);
    if (key->text().size() != 1)
        return false;
    const int typed = key->text().front().unicode();
    const int passed = m_filter(typed);
    if (passed == typed)
        return false;
    if (passed != 0) {
        const QString text(QChar(static_cast<char16_t>(passed)));
        QKeyEvent retyped(QEvent::KeyPress, key->key(), key->modifiers(), text, key->isAutoRepeat());
        m_retyping = true;
        QCoreApplication::sendEvent(watched, &retyped);
        m_retyping = false;
    }
    return true;
}

}  // namespace ostravel
