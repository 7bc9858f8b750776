#include "runtime/scripted_prompt.h"

#include <stdexcept>
#include <utility>

namespace ostravel {

namespace {

template <class T>
T take(std::deque<ScriptedPrompt::Reply>& replies, const char* what) {
    if (replies.empty())
        throw std::logic_error(std::string("unscripted question: ") + what);
    auto* reply = std::get_if<T>(&replies.front());
    if (!reply)
        throw std::logic_error(std::string("scripted reply of another kind for: ") + what);
    T value = std::move(*reply);
    replies.pop_front();
    return value;
}

}  // namespace

QStringList ScriptedPrompt::messages() const {
    QStringList texts;
    for (const Asked& a : m_asked)
        if (a.kind == Asked::Kind::Message)
            texts << a.text;
    return texts;
}

void ScriptedPrompt::record(Asked asked) {
    asked.owner = std::exchange(m_nextOwner, nullptr);
    m_asked.append(std::move(asked));
}

Answer ScriptedPrompt::message(const QString& text, Buttons buttons, Icon icon, const QString& title) {
    record({Asked::Kind::Message, text, title, buttons, icon});
    if (whileAsking)
        whileAsking();
    // A box with OK alone needs no script: OK is the only answer.
    if (buttons == Buttons::OK && (m_replies.empty() || !std::holds_alternative<Answer>(m_replies.front())))
        return Answer::OK;
    return take<Answer>(m_replies, text.toUtf8().constData());
}

std::optional<QString> ScriptedPrompt::nextText() {
    return take<std::optional<QString>>(m_replies, m_asked.back().text.toUtf8().constData());
}

std::optional<QString> ScriptedPrompt::input(const QString& text, const QString& title, const QString&) {
    record({Asked::Kind::Input, text, title});
    return nextText();
}

std::optional<QString> ScriptedPrompt::openFile(const QString& title, const QString&, const QString&) {
    record({Asked::Kind::OpenFile, {}, title});
    return nextText();
}

std::optional<QString> ScriptedPrompt::saveFile(const QString& title, const QString&, const QString&) {
    record({Asked::Kind::SaveFile, {}, title});
    return nextText();
}

std::optional<QString> ScriptedPrompt::chooseFolder(const QString& title, const QString&) {
    record({Asked::Kind::Folder, {}, title});
    return nextText();
}

std::optional<std::uint32_t> ScriptedPrompt::chooseColour(std::uint32_t) {
    record({Asked::Kind::Colour, {}, {}});
    return take<std::optional<std::uint32_t>>(m_replies, "colour");
}

std::optional<FontChoice> ScriptedPrompt::chooseFont(const FontChoice&) {
    record({Asked::Kind::Font, {}, {}});
    return take<std::optional<FontChoice>>(m_replies, "font");
}

}  // namespace ostravel
