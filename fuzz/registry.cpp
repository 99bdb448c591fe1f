// The registry file off Windows, which people edit by hand: any bytes parse, and what is
// written from them parses to the same text again.

#include "library/RegistryIni.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray input(reinterpret_cast<const char *>(data), qsizetype(size));
    QByteArray written, again;
    bravcpl5::RegistryIni::parse(input).text(written);
    bravcpl5::RegistryIni::parse(written).text(again);
    if (again != written)
        __builtin_trap();
    return 0;
}
