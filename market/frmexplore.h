// The navigator frmexplore as logic: an item of the side bar clicked, for the stock in work;
// and the program's own pages that the Help menu opens.
#pragma once

#include <QString>

#include "market/navigator_pages.h"

namespace ostravel {

class Program;

inline const QString kSelectCompany = QStringLiteral("Kindly Select Company or enter Stock Code");

// The working values for cmbequity: Sym, its BSE code and name from qoutense, Sym6. The
// frame's caption becomes the name.
NavValues fillNavValues(Program& program);

// ctxOutlookBar1's item event: the selection test, the working values, then the item's action.
void ctxOutlookBar1_ItemClick(Program& program, const QString& caption);

// One of the program's pages ("Online Help", "Forum Home") in frmBrowser; no stock is needed.
void openProgramPage(Program& program, const QString& caption);

}  // namespace ostravel
