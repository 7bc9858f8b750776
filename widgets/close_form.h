// Unloading a screen: it closes together with the child window of the main frame that holds it.
#pragma once

#include <QMdiSubWindow>
#include <QWidget>

namespace ostravel {

inline void closeForm(QWidget* form) {
    if (auto* holder = qobject_cast<QMdiSubWindow*>(form->parentWidget())) {
        holder->setAttribute(Qt::WA_DeleteOnClose);
        holder->close();
    } else {
        form->close();
    }
}

// Stage text and bar keep their room while hidden, so the form keeps its layout as work begins.
inline void keepRoomWhenHidden(QWidget* control) {
    QSizePolicy policy = control->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    control->setSizePolicy(policy);
}

}  // namespace ostravel
