#include "context/posform.h"

namespace ostravel {

QRect posForm(const std::optional<QRect>& navigator, const QSize& clientArea) {
    if (!navigator)
        return QRect(QPoint(0, 0), clientArea);
    return QRect(navigator->left() + navigator->width(), navigator->top(), clientArea.width() - navigator->width(),
                 navigator->height());
}

}  // namespace ostravel
