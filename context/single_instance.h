// The test for a running instance of the program, made before the database is touched.
#pragma once

#include <QLockFile>
#include <QString>
#include <memory>

namespace ostravel {

class SingleInstance {
public:
    // Holds a lock beside the program's files for as long as this object lives.
    explicit SingleInstance(const QString& lockPath);
    bool isFirst() const { return m_first; }

private:
    std::unique_ptr<QLockFile> m_lock;
    bool m_first = false;
};

// Main's step 1: false (after the message) when another instance runs.
class Prompt;
bool refuseSecondInstance(const SingleInstance& instance, Prompt& prompt);

}  // namespace ostravel
