// Which modal dialog an action brings up, for screen tests: the dialog is closed as soon as it
// shows, so that the action returns.
#pragma once

#include <QApplication>
#include <QString>
#include <QTimer>
#include <QWidget>
#include <functional>

namespace ostravel::test {

// The object name of the modal dialog that `action` shows; empty when none shows.
inline QString modalDialogOf(const std::function<void()>& action) {
    QString shown;
    QTimer::singleShot(0, [&] {
        if (QWidget* dialog = QApplication::activeModalWidget()) {
            shown = dialog->objectName();
            dialog->close();
        }
    });
    action();
    return shown;
}

}  // namespace ostravel::test
