// A printer configuration as the page setup dialog reads it and writes it back.

#include "FuzzInput.h"

#include "printing/PageSetup.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString path = fuzz::inputFile(data, size);
    const bravcpl5::PageSetupChoices choices{{1, 5, 9, 256, 257}, {7, 4, 1}, {0, 1}};
    bravcpl5::PageSetup fields;
    if (bravcpl5::ReadPageSetup(path, choices, bravcpl5::PaperDefaults(), fields)
        && bravcpl5::WritePageSetup(path, fields))
        fuzz::requireLoadable(path);
    return 0;
}
