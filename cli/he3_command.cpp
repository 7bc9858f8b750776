// ostravel-cli he3: packs a file into the backup format, or unpacks one.
#include <QTextStream>

#include "cli/commands.h"
#include "runtime/vberror.h"
#include "safety/clshuffman.h"
#include "safety/whole_file.h"

namespace ostravel::cli {

int he3(const QStringList& args) {
    const bool pack = args.size() == 3 && args.at(0) == QLatin1String("pack");
    const bool unpack = args.size() == 3 && args.at(0) == QLatin1String("unpack");
    if (!pack && !unpack) {
        QTextStream(stderr) << "usage: ostravel-cli he3 pack|unpack IN OUT\n";
        return 2;
    }
    const QString operation = QLatin1String("he3 ") + args.at(0);
    try {
        QByteArray bytes = readWholeFile(args.at(1), operation);
        clsHuffman huffman;
        if (pack)
            huffman.EncodeByte(bytes, bytes.size());
        else
            huffman.DecodeByte(bytes, bytes.size());
        replaceFile(args.at(2), bytes, operation);
    } catch (const VbError& e) {
        QTextStream(stderr) << e.source() << ": " << e.description() << '\n';
        return 2;
    }
    return 0;
}

}  // namespace ostravel::cli
