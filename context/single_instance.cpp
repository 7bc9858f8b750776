#include "context/single_instance.h"

#include "runtime/prompt.h"

namespace ostravel {

SingleInstance::SingleInstance(const QString& lockPath) : m_lock(std::make_unique<QLockFile>(lockPath)) {
    // A lock left by a crashed run names a process that is gone, and is taken over.
    m_lock->setStaleLockTime(0);
    m_first = m_lock->tryLock(0);
}

bool refuseSecondInstance(const SingleInstance& instance, Prompt& prompt) {
    if (instance.isFirst())
        return false;
    prompt.message(QStringLiteral("System is Already in Run Mode ..."), Buttons::OK, Icon::Critical,
                   QStringLiteral("System is Already Running ..."));
    return true;
}

}  // namespace ostravel
