// The one seam through which the program asks the user anything: message boxes, input
// boxes and the file, folder, colour and font dialogs. The program answers it with dialogs;
// tests answer it from a script and read back what was asked.
#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>
#include <optional>

class QObject;

namespace ostravel {

// YesNoDefaultNo: Yes and No with No as the button that Enter presses.
enum class Buttons { OK, OKCancel, YesNo, YesNoCancel, RetryCancel, AbortRetryIgnore, YesNoDefaultNo };
enum class Icon { None, Critical, Question, Exclamation, Information };
enum class Answer { OK, Cancel, Yes, No, Retry, Abort, Ignore };

struct FontChoice {
    QString name;
    double size = 8.25;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeout = false;
    std::uint32_t colour = 0;
};

class Prompt {
public:
    virtual ~Prompt() = default;

    virtual Answer message(const QString& text, Buttons buttons, Icon icon, const QString& title) = 0;
    // InputBox: the typed text, or nothing when cancelled (the run time then gives "").
    virtual std::optional<QString> input(const QString& text, const QString& title, const QString& initial) = 0;
    // File dialogs: filter as "Text files (*.txt);;All files (*)".
    virtual std::optional<QString> openFile(const QString& title, const QString& folder, const QString& filter) = 0;
    virtual std::optional<QString> saveFile(const QString& title, const QString& folder, const QString& filter) = 0;
    virtual std::optional<QString> chooseFolder(const QString& title, const QString& folder) = 0;
    // Colours as the program keeps them: red in the low byte.
    virtual std::optional<std::uint32_t> chooseColour(std::uint32_t initial) = 0;
    virtual std::optional<FontChoice> chooseFont(const FontChoice& initial) = 0;
    // The next question opens centred on `owner`, one of the program's windows, rather than on
    // the main frame; a prompt without windows has nothing to centre.
    virtual void centreNextOn(const QObject* owner) { static_cast<void>(owner); }

    // MsgBox with only a text and OK.
    void inform(const QString& text, const QString& title = QStringLiteral("Ostravel")) {
        message(text, Buttons::OK, Icon::None, title);
    }
};

}  // namespace ostravel
