// The prompt of a run without a user: every box is printed to stderr and answered with its
// default button; dialogs are cancelled. And the program run on a folder with it.
#pragma once

#include <optional>

#include "context/program.h"
#include "runtime/prompt.h"

namespace ostravel::cli {

class HeadlessPrompt : public Prompt {
public:
    // The answer to the advice's what-if price box, from the command line.
    std::optional<QString> whatIfPrice;

    Answer message(const QString& text, Buttons buttons, Icon icon, const QString& title) override;
    std::optional<QString> input(const QString& text, const QString& title, const QString& initial) override;
    std::optional<QString> openFile(const QString&, const QString&, const QString&) override { return {}; }
    std::optional<QString> saveFile(const QString&, const QString&, const QString&) override { return {}; }
    std::optional<QString> chooseFolder(const QString&, const QString&) override { return {}; }
    std::optional<std::uint32_t> chooseColour(std::uint32_t) override { return {}; }
    std::optional<FontChoice> chooseFont(const FontChoice&) override { return {}; }
};

// The program on the folder, for one command.
class HeadlessRun {
public:
    HeadlessRun();
    HeadlessPrompt& prompt() { return m_prompt; }
    // The program with its store open as at start, and `symbol` (when given) the stock in work;
    // nullptr, with the reason on stderr, when the store can't be opened.
    Program* open(const QString& symbol = QString());

private:
    HeadlessPrompt m_prompt;
    Program m_program;
};

}  // namespace ostravel::cli
