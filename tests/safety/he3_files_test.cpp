// The file operations: DecodeFile with the live database, the errors of both, and
// `ostravel-cli he3`, none of which may leave a partial file behind. A backup's EncodeFile is
// checked where the backup screen runs it.
#include <unistd.h>

#include <QDir>
#include <QTemporaryDir>
#include <cstdio>

#include "cli/commands.h"
#include "runtime/apppath.h"
#include "runtime/scripted_prompt.h"
#include "tests/safety/he3_test_support.h"

namespace ostravel::test {
namespace {

class He3Files : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_folder.isValid());
        setAppPath(m_folder.path());
        QDir(m_folder.path()).mkpath(QStringLiteral("database"));
    }

    QString file(const QString& name) const { return m_folder.filePath(name); }
    static void write(const QString& path, const QByteArray& bytes) {
        QFile f(path);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
    }
    static QByteArray read(const QString& path) {
        QFile f(path);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
    // Files of the folder, hidden ones too: a temporary file left behind shows here.
    QStringList entries(const QString& sub = {}) const {
        return QDir(m_folder.filePath(sub)).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    QTemporaryDir m_folder;
    ScriptedPrompt m_prompt;
    clsHuffman m_huffman;
    const QByteArray m_plain = testData(QStringLiteral("history/RELIANCE.csv"));
};

TEST_F(He3Files, DecodeFileRestoresOverTheLiveDatabase) {
    write(file(QStringLiteral("ostravel_Backup.bk")), packed(m_plain));
    write(file(QStringLiteral("database/ostravel.mdb")), "the live database");
    m_huffman.DecodeFile(file(QStringLiteral("ostravel_Backup.bk")), file(QStringLiteral("database/ostravel_bk.mdb")),
                         m_prompt);

    EXPECT_EQ(read(file(QStringLiteral("database/ostravel_bk.mdb"))), m_plain);
    EXPECT_EQ(read(file(QStringLiteral("database/ostravel.mdb"))), m_plain);
    EXPECT_TRUE(m_prompt.asked().isEmpty());
    EXPECT_EQ(entries(QStringLiteral("database")),
              (QStringList{QStringLiteral("ostravel.mdb"), QStringLiteral("ostravel_bk.mdb")}));
}

TEST_F(He3Files, DamagedBackupLeavesTheLiveDatabase) {
    QByteArray damaged = packed(m_plain);
    damaged[4] = static_cast<char>(damaged.at(4) ^ 0x40);
    write(file(QStringLiteral("ostravel_Backup.bk")), damaged);
    write(file(QStringLiteral("database/ostravel.mdb")), "the live database");
    const auto error = raised([&] {
        m_huffman.DecodeFile(file(QStringLiteral("ostravel_Backup.bk")),
                             file(QStringLiteral("database/ostravel_bk.mdb")), m_prompt);
    });
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->description(), kChecksumError);
    EXPECT_EQ(read(file(QStringLiteral("database/ostravel.mdb"))), QByteArray("the live database"));
    EXPECT_EQ(entries(QStringLiteral("database")), QStringList{QStringLiteral("ostravel.mdb")});
}

struct MissingSourceCase {
    const char* name;
    void (clsHuffman::*operation)(const QString&, const QString&, Prompt&);
    const char* source;
};

class He3MissingSource : public He3Files, public testing::WithParamInterface<MissingSourceCase> {};

TEST_P(He3MissingSource, RaisesSourceFileDoesNotExist) {
    const auto error = raised([&] {
        (m_huffman.*GetParam().operation)(file(QStringLiteral("nowhere.bk")), file(QStringLiteral("out")), m_prompt);
    });
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->number(), kObjectError);
    EXPECT_EQ(error->source(), QString::fromLatin1(GetParam().source));
    EXPECT_EQ(error->description(), QStringLiteral("Source file does not exist"));
    EXPECT_TRUE(m_prompt.asked().isEmpty());
    EXPECT_TRUE(entries().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Operations, He3MissingSource,
    testing::Values(MissingSourceCase{"encode", &clsHuffman::EncodeFile, "clsHuffman.EncodeFile()"},
                    MissingSourceCase{"decode", &clsHuffman::DecodeFile, "clsHuffman.DecodeFile()"}),
    CaseName());

TEST_F(He3Files, UnwritableDestinationRaisesWithoutAMessage) {
    write(file(QStringLiteral("live.mdb")), m_plain);
    const auto error = raised([&] {
        m_huffman.EncodeFile(file(QStringLiteral("live.mdb")), file(QStringLiteral("no/such/folder/backup.bk")),
                             m_prompt);
    });
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->number(), err::PathNotFound);
    EXPECT_EQ(error->source(), QStringLiteral("clsHuffman.EncodeFile()"));
    EXPECT_TRUE(m_prompt.asked().isEmpty());
}

// Runs `ostravel-cli he3` with its words and keeps what it wrote to stderr.
struct CliRun {
    int exitCode = 0;
    QByteArray errors;
};

CliRun runHe3(const QStringList& args) {
    std::fflush(stderr);
    FILE* capture = std::tmpfile();
    const int saved = ::dup(2);
    ::dup2(fileno(capture), 2);
    CliRun run;
    run.exitCode = cli::he3(args);
    std::fflush(stderr);
    ::dup2(saved, 2);
    ::close(saved);
    std::rewind(capture);
    char buffer[512];
    for (std::size_t got; (got = std::fread(buffer, 1, sizeof buffer, capture)) > 0;)
        run.errors.append(buffer, static_cast<qsizetype>(got));
    std::fclose(capture);
    return run;
}

TEST_F(He3Files, CliPacksAndUnpacks) {
    write(file(QStringLiteral("plain")), m_plain);
    EXPECT_EQ(runHe3({QStringLiteral("pack"), file(QStringLiteral("plain")), file(QStringLiteral("packed"))}).exitCode,
              0);
    EXPECT_EQ(read(file(QStringLiteral("packed"))), packed(m_plain));
    EXPECT_EQ(runHe3({QStringLiteral("unpack"), file(QStringLiteral("packed")), file(QStringLiteral("back"))}).exitCode,
              0);
    EXPECT_EQ(read(file(QStringLiteral("back"))), m_plain);
}

TEST_F(He3Files, CliErrorGivesSourceAndTextAndNoOutput) {
    write(file(QStringLiteral("foreign")), "HE1\rnot a backup");
    const CliRun run = runHe3({QStringLiteral("unpack"), file(QStringLiteral("foreign")), file(QStringLiteral("out"))});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.errors, "HuffmanDecode(): " + kIdentificationError.toUtf8() + "\n");
    EXPECT_EQ(entries(), QStringList{QStringLiteral("foreign")});
}

TEST_F(He3Files, CliKeepsAnOldOutputOnError) {
    QByteArray damaged = packed(m_plain);
    damaged.chop(damaged.size() / 3);
    write(file(QStringLiteral("cut.bk")), damaged);
    write(file(QStringLiteral("out")), "older");
    const CliRun run = runHe3({QStringLiteral("unpack"), file(QStringLiteral("cut.bk")), file(QStringLiteral("out"))});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.errors, "clsHuffman.Decode(): " + kChecksumError.toUtf8() + "\n");
    EXPECT_EQ(read(file(QStringLiteral("out"))), QByteArray("older"));
    EXPECT_EQ(entries(), (QStringList{QStringLiteral("cut.bk"), QStringLiteral("out")}));
}

TEST_F(He3Files, CliRefusesOtherWords) {
    EXPECT_EQ(runHe3({QStringLiteral("pack"), file(QStringLiteral("a"))}).exitCode, 2);
    EXPECT_EQ(runHe3({QStringLiteral("squeeze"), file(QStringLiteral("a")), file(QStringLiteral("b"))}).exitCode, 2);
    const CliRun missing = runHe3({QStringLiteral("pack"), file(QStringLiteral("absent")), file(QStringLiteral("b"))});
    EXPECT_EQ(missing.exitCode, 2);
    EXPECT_EQ(missing.errors, QByteArray("he3 pack: File not found\n"));
    EXPECT_TRUE(entries().isEmpty());
}

}  // namespace
}  // namespace ostravel::test
