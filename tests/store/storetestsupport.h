// Scratch databases for the store's tests: each in a folder of its own that goes with the test.
#pragma once

#include <gtest/gtest.h>

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

#include "runtime/variant.h"
#include "runtime/vberror.h"
#include "store/database.h"
#include "tests/support/raised.h"

namespace ostravel::test {

class ScratchFolder {
public:
    ScratchFolder();
    QString path() const { return m_dir.path(); }
    QString file(const QString& name) const { return m_dir.filePath(name); }

private:
    QTemporaryDir m_dir;
};

// A new database file with the program's schema.
struct ScratchDatabase {
    ScratchDatabase();
    ScratchFolder folder;
    QString path;
    Database db;
};

// Portfolio "Growth" (INFY, TCS, M&M) and "Income" (INFY), trades and prices for each holding.
void addSampleData(Database& db);

QByteArray fileBytes(const QString& path);
void writeBytes(const QString& path, const QByteArray& bytes);

}  // namespace ostravel::test
