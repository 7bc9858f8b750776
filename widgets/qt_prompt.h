// The prompt answered with the desktop's dialogs.
#pragma once

#include <QPointer>

#include "runtime/prompt.h"

class QWidget;

namespace ostravel {

class QtPrompt : public Prompt {
public:
    // Dialogs open over the given window (the main frame once it exists).
    void setParentWindow(QWidget* parent) { m_parent = parent; }

    Answer message(const QString& text, Buttons buttons, Icon icon, const QString& title) override;
    std::optional<QString> input(const QString& text, const QString& title, const QString& initial) override;
    std::optional<QString> openFile(const QString& title, const QString& folder, const QString& filter) override;
    std::optional<QString> saveFile(const QString& title, const QString& folder, const QString& filter) override;
    std::optional<QString> chooseFolder(const QString& title, const QString& folder) override;
    std::optional<std::uint32_t> chooseColour(std::uint32_t initial) override;
    std::optional<FontChoice> chooseFont(const FontChoice& initial) override;
    void centreNextOn(const QObject* owner) override;

private:
    // The window the next dialog opens over: the one it was centred on, else the main frame.
    QWidget* dialogParent();

    QWidget* m_parent = nullptr;
    QPointer<QWidget> m_nextOwner;
};

}  // namespace ostravel
