// HE3 packing and unpacking beside zlib's Huffman-only deflate and its inflate, on a 20 MB
// database and 20 MB of text made from the test data: speeds, sizes against the order-0
// entropy bound, and the peak memory of a whole file's backup and restore.
#include <malloc.h>
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>
#include <zlib.h>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <functional>
#include <string>

#include "runtime/apppath.h"
#include "runtime/scripted_prompt.h"
#include "safety/clshuffman.h"

namespace {

constexpr qsizetype kTargetSize = 20 * 1024 * 1024;
constexpr int kRuns = 5;

QByteArray readFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "cannot read %s\n", qPrintable(path));
        std::exit(1);
    }
    return file.readAll();
}

void writeFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
        std::exit(1);
    }
}

// Daily rows of one real stock under the names of listed companies, with an index, until the
// file comes to the target size.
void makeDatabase(const QString& path, const QString& dataFolder) {
    const QList<QByteArray> rows = readFile(dataFolder + QStringLiteral("/history/RELIANCE.csv")).split('\n');
    const QList<QByteArray> companies = readFile(dataFolder + QStringLiteral("/nse-equity-list.csv")).split('\n');
    sqlite3* db = nullptr;
    sqlite3_open(path.toUtf8().constData(), &db);
    sqlite3_exec(db,
                 "create table history (symbol text, tradedate text, open real, high real, low real, close real, "
                 "adjclose real, volume integer);"
                 "create index history_day on history (symbol, tradedate);",
                 nullptr, nullptr, nullptr);
    sqlite3_stmt* insert = nullptr;
    sqlite3_prepare_v2(db, "insert into history values (?, ?, ?, ?, ?, ?, ?, ?)", -1, &insert, nullptr);
    for (qsizetype company = 1; QFileInfo(path).size() < kTargetSize && company < companies.size(); ++company) {
        const QByteArray symbol = companies.at(company).split(',').at(0);
        const double scale = 0.5 + static_cast<double>(company % 17) / 8.0;
        sqlite3_exec(db, "begin", nullptr, nullptr, nullptr);
        for (qsizetype r = 1; r < rows.size(); ++r) {
            const QList<QByteArray> fields = rows.at(r).split(',');
            if (fields.size() != 7)
                continue;
            sqlite3_bind_text(insert, 1, symbol.constData(), static_cast<int>(symbol.size()), SQLITE_TRANSIENT);
            sqlite3_bind_text(insert, 2, fields.at(0).constData(), static_cast<int>(fields.at(0).size()),
                              SQLITE_TRANSIENT);
            for (int f = 1; f < 6; ++f)
                sqlite3_bind_double(insert, f + 2, std::round(fields.at(f).toDouble() * scale * 100.0) / 100.0);
            sqlite3_bind_int64(insert, 8, fields.at(6).toLongLong());
            sqlite3_step(insert);
            sqlite3_reset(insert);
        }
        sqlite3_exec(db, "commit", nullptr, nullptr, nullptr);
    }
    sqlite3_finalize(insert);
    sqlite3_close(db);
}

QByteArray makeText(const QString& dataFolder) {
    const QByteArray source = readFile(dataFolder + QStringLiteral("/nse-equity-list.csv"));
    QByteArray text;
    while (text.size() < kTargetSize) text += source;
    text.truncate(kTargetSize);
    return text;
}

double entropyBoundBytes(const QByteArray& bytes) {
    std::array<double, 256> counts{};
    for (const char c : bytes) counts[static_cast<unsigned char>(c)] += 1;
    const double total = static_cast<double>(bytes.size());
    double bits = 0;
    for (const double n : counts)
        if (n > 0)
            bits -= n * std::log2(n / total);
    return bits / 8;
}

// Best of kRuns, in seconds; `prepare` runs untimed before each.
double bestTime(const std::function<void()>& prepare, const std::function<void()>& work) {
    double best = 1e9;
    for (int run = 0; run < kRuns; ++run) {
        prepare();
        const auto start = std::chrono::steady_clock::now();
        work();
        best = std::min(best, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
    return best;
}

QByteArray zlibHuffmanOnly(const QByteArray& plain) {
    z_stream stream{};
    deflateInit2(&stream, 1, Z_DEFLATED, 15, 8, Z_HUFFMAN_ONLY);
    QByteArray out(static_cast<qsizetype>(deflateBound(&stream, static_cast<uLong>(plain.size()))), Qt::Uninitialized);
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(plain.constData()));
    stream.avail_in = static_cast<uInt>(plain.size());
    stream.next_out = reinterpret_cast<Bytef*>(out.data());
    stream.avail_out = static_cast<uInt>(out.size());
    deflate(&stream, Z_FINISH);
    out.resize(static_cast<qsizetype>(stream.total_out));
    deflateEnd(&stream);
    return out;
}

QByteArray zlibInflate(const QByteArray& packed, qsizetype plainSize) {
    z_stream stream{};
    inflateInit2(&stream, 15);
    QByteArray out(plainSize, Qt::Uninitialized);
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.constData()));
    stream.avail_in = static_cast<uInt>(packed.size());
    stream.next_out = reinterpret_cast<Bytef*>(out.data());
    stream.avail_out = static_cast<uInt>(out.size());
    inflate(&stream, Z_FINISH);
    out.resize(static_cast<qsizetype>(stream.total_out));
    inflateEnd(&stream);
    return out;
}

long statusKilobytes(const char* field) {
    FILE* status = std::fopen("/proc/self/status", "r");
    char line[256];
    long value = -1;
    while (status && std::fgets(line, sizeof line, status))
        if (std::strncmp(line, field, std::strlen(field)) == 0)
            value = std::atol(line + std::strlen(field));
    if (status)
        std::fclose(status);
    return value;
}

// The growth of the resident set's peak over the operation, run in a child process so that
// nothing of this run's other buffers is counted or reused.
double peakGrowthBytes(const std::function<void()>& operation) {
    int channel[2];
    if (::pipe(channel) != 0)
        return -1;
    const pid_t child = ::fork();
    if (child == 0) {
        ::close(channel[0]);
        // Resets the peak to the present resident size.
        if (FILE* refs = std::fopen("/proc/self/clear_refs", "w")) {
            std::fputs("5", refs);
            std::fclose(refs);
        }
        const long before = statusKilobytes("VmRSS:");
        const long peakBefore = statusKilobytes("VmHWM:");
        operation();
        // Without the reset the peak would be the parent's: no figure then.
        const bool reset = peakBefore - before < 1024;
        const double growth = reset ? 1024.0 * static_cast<double>(statusKilobytes("VmHWM:") - before) : -1.0;
        ssize_t ignored = ::write(channel[1], &growth, sizeof growth);
        (void)ignored;
        ::_exit(0);
    }
    ::close(channel[1]);
    double growth = -1;
    if (::read(channel[0], &growth, sizeof growth) != sizeof growth)
        growth = -1;
    ::close(channel[0]);
    ::waitpid(child, nullptr, 0);
    return growth;
}

bool measure(const char* name, const QString& plainPath, const QTemporaryDir& work) {
    const QByteArray plain = readFile(plainPath);
    const double mb = static_cast<double>(plain.size()) / 1e6;
    ostravel::clsHuffman huffman;

    QByteArray bytes;
    const double pack = bestTime(
        [&] {
            bytes = plain;
            bytes.detach();
        },
        [&] { huffman.EncodeByte(bytes, bytes.size()); });
    const QByteArray he3 = bytes;
    const double unpack = bestTime(
        [&] {
            bytes = he3;
            bytes.detach();
        },
        [&] { huffman.DecodeByte(bytes, bytes.size()); });
    const bool he3Whole = bytes == plain;

    QByteArray deflated;
    const double deflate = bestTime([] {}, [&] { deflated = zlibHuffmanOnly(plain); });
    QByteArray inflated;
    const double inflate = bestTime([] {}, [&] { inflated = zlibInflate(deflated, plain.size()); });
    const bool zlibWhole = inflated == plain;

    // A whole backup and a whole restore, as the screens run them.
    const QString backup = work.filePath(QStringLiteral("ostravel_Backup.bk"));
    const double packPeak = peakGrowthBytes([&] {
        ostravel::ScriptedPrompt prompt;
        ostravel::clsHuffman().EncodeFile(plainPath, backup, prompt);
    });
    const double unpackPeak = peakGrowthBytes([&] {
        ostravel::ScriptedPrompt prompt;
        ostravel::clsHuffman().DecodeFile(backup, work.filePath(QStringLiteral("database/ostravel_bk.mdb")), prompt);
    });

    const double packRatio = deflate / pack;
    const double unpackRatio = inflate / unpack;
    const double size = static_cast<double>(plain.size());
    std::printf("\n%s: %.2f MB, order-0 entropy bound %.2f MB\n", name, mb, entropyBoundBytes(plain) / 1e6);
    std::printf("  packed size      HE3 %.2f MB    zlib Huffman-only %.2f MB\n", static_cast<double>(he3.size()) / 1e6,
                static_cast<double>(deflated.size()) / 1e6);
    std::printf("  pack             HE3 %7.1f MB/s   zlib deflate %7.1f MB/s   ratio %.2f (at least 3)\n", mb / pack,
                mb / deflate, packRatio);
    std::printf("  unpack           HE3 %7.1f MB/s   zlib inflate %7.1f MB/s   ratio %.2f (at least 1.5)\n",
                mb / unpack, mb / inflate, unpackRatio);
    std::printf("  peak memory      backup %.2f x file   restore %.2f x file (at most 2.5)\n", packPeak / size,
                unpackPeak / size);
    std::printf("  round trips      HE3 %s   zlib %s\n", he3Whole ? "whole" : "BROKEN", zlibWhole ? "whole" : "BROKEN");
    return he3Whole && packRatio >= 3 && unpackRatio >= 1.5 && packPeak > 0 && packPeak / size <= 2.5 &&
           unpackPeak > 0 && unpackPeak / size <= 2.5;
}

}  // namespace

int main(int argc, char** argv) {
    // Large buffers always come from the system and go back to it, so the resident peak is
    // the coder's own and not what an earlier run left in the heap.
    mallopt(M_MMAP_THRESHOLD, 128 * 1024);
    const QString dataFolder = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral(OSTRAVEL_BENCH_DATA);

    QTemporaryDir work;
    QDir(work.path()).mkpath(QStringLiteral("database"));
    ostravel::setAppPath(work.path());
    const QString database = work.filePath(QStringLiteral("history.mdb"));
    const QString text = work.filePath(QStringLiteral("equity-list.txt"));
    makeDatabase(database, dataFolder);
    writeFile(text, makeText(dataFolder));

    std::printf("HE3 against zlib %s, Huffman-only deflate at level 1; best of %d runs\n", zlibVersion(), kRuns);
    const bool database_ok = measure("database", database, work);
    const bool text_ok = measure("text", text, work);
    std::printf("\n%s\n", database_ok && text_ok ? "all targets met" : "TARGETS MISSED");
    return 0;
}
