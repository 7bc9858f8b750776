#include "tests/support/raised.h"

namespace ostravel::test {

std::optional<VbError> raised(const std::function<void()>& call) {
    try {
        call();
    } catch (const VbError& error) {
        return error;
    }
    return std::nullopt;
}

int errorOf(const std::function<void()>& call) {
    const std::optional<VbError> error = raised(call);
    return error ? error->number() : 0;
}

}  // namespace ostravel::test
