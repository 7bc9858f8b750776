// What a call raises, for tests of the run time's errors.
#pragma once

#include <functional>
#include <optional>

#include "runtime/vberror.h"

namespace ostravel::test {

// The error the call raises, none when it raises none.
std::optional<VbError> raised(const std::function<void()>& call);
// The number of the error the call raises, 0 when it raises none.
int errorOf(const std::function<void()>& call);

}  // namespace ostravel::test
