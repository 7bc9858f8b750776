// A prompt that answers from a script and records every question word for word, for tests
// and for headless runs.
#pragma once

#include <QList>
#include <deque>
#include <functional>
#include <variant>

#include "runtime/prompt.h"

namespace ostravel {

struct Asked {
    enum class Kind { Message, Input, OpenFile, SaveFile, Folder, Colour, Font } kind;
    QString text;
    QString title;
    Buttons buttons = Buttons::OK;
    Icon icon = Icon::None;
    const QObject* owner = nullptr;  // the window the question was centred on
};

class ScriptedPrompt : public Prompt {
public:
    using Reply = std::variant<Answer, std::optional<QString>, std::optional<std::uint32_t>, std::optional<FontChoice>>;

    // Queue the next replies, in the order the questions will come.
    void answer(Answer a) { m_replies.push_back(a); }
    void answerText(std::optional<QString> text) { m_replies.push_back(std::move(text)); }
    void answerColour(std::optional<std::uint32_t> c) { m_replies.push_back(c); }
    void answerFont(std::optional<FontChoice> f) { m_replies.push_back(std::move(f)); }

    const QList<Asked>& asked() const { return m_asked; }
    QStringList messages() const;  // the texts of the message boxes, in order
    void clear() {
        m_asked.clear();
        m_replies.clear();
    }
    bool allAnswered() const { return m_replies.empty(); }
    // Runs while a message box waits for its answer, as the window events of a real modal box
    // go on meanwhile; unset, nothing runs.
    std::function<void()> whileAsking;

    Answer message(const QString& text, Buttons buttons, Icon icon, const QString& title) override;
    std::optional<QString> input(const QString& text, const QString& title, const QString& initial) override;
    std::optional<QString> openFile(const QString& title, const QString& folder, const QString& filter) override;
    std::optional<QString> saveFile(const QString& title, const QString& folder, const QString& filter) override;
    std::optional<QString> chooseFolder(const QString& title, const QString& folder) override;
    std::optional<std::uint32_t> chooseColour(std::uint32_t initial) override;
    std::optional<FontChoice> chooseFont(const FontChoice& initial) override;
    void centreNextOn(const QObject* owner) override { m_nextOwner = owner; }

private:
    void record(Asked asked);
    std::optional<QString> nextText();
    std::deque<Reply> m_replies;
    QList<Asked> m_asked;
    const QObject* m_nextOwner = nullptr;
};

}  // namespace ostravel
