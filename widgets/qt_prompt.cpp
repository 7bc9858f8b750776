#include "widgets/qt_prompt.h"

#include <QColorDialog>
#include <QFileDialog>
#include <QFontDialog>
#include <QInputDialog>
#include <QMessageBox>

namespace ostravel {

namespace {

QMessageBox::StandardButtons standardButtons(Buttons buttons) {
    switch (buttons) {
        case Buttons::OK:
            return QMessageBox::Ok;
        case Buttons::OKCancel:
            return QMessageBox::Ok | QMessageBox::Cancel;
        case Buttons::YesNo:
        case Buttons::YesNoDefaultNo:
            return QMessageBox::Yes | QMessageBox::No;
        case Buttons::YesNoCancel:
            return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
        case Buttons::RetryCancel:
            return QMessageBox::Retry | QMessageBox::Cancel;
        case Buttons::AbortRetryIgnore:
            return QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore;
    }
    return QMessageBox::Ok;
}

QMessageBox::Icon messageIcon(Icon icon) {
    switch (icon) {
        case Icon::None:
            return QMessageBox::NoIcon;
        case Icon::Critical:
            return QMessageBox::Critical;
        case Icon::Question:
            return QMessageBox::Question;
        case Icon::Exclamation:
            return QMessageBox::Warning;
        case Icon::Information:
            return QMessageBox::Information;
    }
    return QMessageBox::NoIcon;
}

Answer toAnswer(int button) {
    switch (button) {
        case QMessageBox::Cancel:
            return Answer::Cancel;
        case QMessageBox::Yes:
            return Answer::Yes;
        case QMessageBox::No:
            return Answer::No;
        case QMessageBox::Retry:
            return Answer::Retry;
        case QMessageBox::Abort:
            return Answer::Abort;
        case QMessageBox::Ignore:
            return Answer::Ignore;
        default:
            return Answer::OK;
    }
}

// Colours are kept with red in the low byte.
QColor toQColor(std::uint32_t c) {
    return QColor(int(c & 0xFF), int((c >> 8) & 0xFF), int((c >> 16) & 0xFF));
}
std::uint32_t fromQColor(const QColor& c) {
    return std::uint32_t(c.red()) | (std::uint32_t(c.green()) << 8) | (std::uint32_t(c.blue()) << 16);
}

std::optional<QString> chosen(const QString& path) {
    if (path.isEmpty())
        return std::nullopt;
    return path;
}

}  // namespace

void QtPrompt::centreNextOn(const QObject* owner) {
    // Qt opens a dialog centred on the window it belongs to.
    m_nextOwner = qobject_cast<QWidget*>(const_cast<QObject*>(owner));
}

QWidget* QtPrompt::dialogParent() {
    QWidget* owner = m_nextOwner;
    m_nextOwner.clear();
    return owner ? owner : m_parent;
}

Answer QtPrompt::message(const QString& text, Buttons buttons, Icon icon, const QString& title) {
    QMessageBox box(messageIcon(icon), title, text, standardButtons(buttons), dialogParent());
    // Escape answers Cancel or No where the box has one, as the desktop expects.
    if (buttons == Buttons::OKCancel || buttons == Buttons::RetryCancel || buttons == Buttons::YesNoCancel)
        box.setEscapeButton(QMessageBox::Cancel);
    else if (buttons == Buttons::YesNo || buttons == Buttons::YesNoDefaultNo)
        box.setEscapeButton(QMessageBox::No);
    if (buttons == Buttons::YesNoDefaultNo)
        box.setDefaultButton(QMessageBox::No);
    return toAnswer(box.exec());
}

std::optional<QString> QtPrompt::input(const QString& text, const QString& title, const QString& initial) {
    bool ok = false;
    const QString value = QInputDialog::getText(dialogParent(), title, text, QLineEdit::Normal, initial, &ok);
    if (!ok)
        return std::nullopt;
    return value;
}

std::optional<QString> QtPrompt::openFile(const QString& title, const QString& folder, const QString& filter) {
    return chosen(QFileDialog::getOpenFileName(dialogParent(), title, folder, filter));
}

std::optional<QString> QtPrompt::saveFile(const QString& title, const QString& folder, const QString& filter) {
    return chosen(QFileDialog::getSaveFileName(dialogParent(), title, folder, filter));
}

std::optional<QString> QtPrompt::chooseFolder(const QString& title, const QString& folder) {
    return chosen(QFileDialog::getExistingDirectory(dialogParent(), title, folder));
}

std::optional<std::uint32_t> QtPrompt::chooseColour(std::uint32_t initial) {
    const QColor c = QColorDialog::getColor(toQColor(initial), dialogParent());
    if (!c.isValid())
        return std::nullopt;
    return fromQColor(c);
}

std::optional<FontChoice> QtPrompt::chooseFont(const FontChoice& initial) {
    QFont font(initial.name);
    font.setPointSizeF(initial.size);
    font.setBold(initial.bold);
    font.setItalic(initial.italic);
    font.setUnderline(initial.underline);
    font.setStrikeOut(initial.strikeout);
    bool ok = false;
    const QFont picked = QFontDialog::getFont(&ok, font, dialogParent());
    if (!ok)
        return std::nullopt;
    FontChoice choice = initial;
    choice.name = picked.family();
    choice.size = picked.pointSizeF();
    choice.bold = picked.bold();
    choice.italic = picked.italic();
    choice.underline = picked.underline();
    choice.strikeout = picked.strikeOut();
    return choice;
}

}  // namespace ostravel
