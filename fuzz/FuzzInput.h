#pragma once

// What every fuzz target shares: the input handed to the library as a file's bytes, the
// way a user's settings folder hands them over, and the checks that turn a wrong result
// into a finding (libFuzzer only reports crashes, so a broken promise aborts).

#include <QByteArray>
#include <QString>
#include <cstddef>
#include <cstdint>
#include <pugixml.hpp>

namespace bravcpl5::fuzz {

// Writes the input over one file in a private temporary folder (on tmpfs when TMPDIR
// points there) and returns its path; the same path every time.
QString InputFile(const std::uint8_t *data, std::size_t size);
// A second file in that folder, for what a reader saves.
QString OutputFile();

// Aborts with `what` on standard error unless `condition` holds.
void Require(bool condition, const char *what);
// A document the library saves must load again: its text is parsed back and must give a
// document, and be no more than a small factor larger than `inputSize` bytes when one is
// given (0 skips that check).
void RequireSavedTextLoads(const pugi::xml_document &document, std::size_t inputSize = 0);

} // namespace bravcpl5::fuzz
