// One statement of a screen procedure that writes a grid: a cell beyond the grid's rows (381)
// grows the grid by one row and the statement runs again, which is how the ledger grids grow;
// any other error goes to the procedure's own handler, and the procedure goes on.
#pragma once

#include "app/base/vberror.h"
#include "app/gridformat.h"

namespace ostravel {

template <class Statement, class Handler>
bool gridStatement(FlexGridData& grid, Statement&& statement, Handler&& handler) {
    bool grown = false;
    for (;;) {
        try {
            statement();
            return true;
        } catch (const VbError& e) {
            // One row more is always enough for one cell; a second 381 is a real fault.
            if (e.number() == err::InvalidArrayIndex && !grown) {
                grid.setRows(grid.rows() + 1);
                grown = true;
                continue;
            }
            handler(e);
            return false;
        }
    }
}

}  // namespace ostravel
