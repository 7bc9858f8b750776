// libFuzzer target for the unpacker: any bytes either unpack or raise the coder's own error,
// progress only rises within 0 to 100, and what unpacks packs and unpacks to itself again.
#include <cstdint>
#include <cstdlib>

#include "runtime/vberror.h"
#include "safety/clshuffman.h"
#include "safety/he3_format.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    ostravel::clsHuffman huffman;
    int last = -1;
    huffman.Huffman_Progress = [&last](std::int16_t percent) {
        if (percent <= last || percent > 100)
            std::abort();
        last = percent;
    };
    try {
        huffman.DecodeByte(bytes, bytes.size());
    } catch (const ostravel::VbError& e) {
        if (e.number() != ostravel::he3::kObjectErrorBase)
            std::abort();
        return 0;
    }
    QByteArray again = bytes;
    last = -1;
    huffman.EncodeByte(again, again.size());
    last = -1;
    huffman.DecodeByte(again, again.size());
    if (again != bytes)
        std::abort();
    return 0;
}
