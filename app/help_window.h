// The manual, opened from Help - Help.
#pragma once

class QWidget;

namespace ostravel {

void showHelpWindow(QWidget* frame);

}  // namespace ostravel
