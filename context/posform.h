// PosForm: where a child window goes, to the right of the navigator side bar.
#pragma once

#include <QRect>
#include <QSize>
#include <optional>

namespace ostravel {

// With no navigator open the child fills the client area from its left edge.
QRect posForm(const std::optional<QRect>& navigator, const QSize& clientArea);

}  // namespace ostravel
