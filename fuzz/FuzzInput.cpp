#include "FuzzInput.h"

#include "library/Xml.h"

#include <QFile>
#include <QTemporaryDir>
#include <cstdio>
#include <cstdlib>

namespace bravcpl5::fuzz {

namespace {

// Indentation and escaping ("&gt;" for ">") may grow a document, but only by a bounded
// factor; anything beyond this is the quadratic growth a deep document once caused.
constexpr std::size_t maxGrowthFactor = 8;
constexpr std::size_t growthAllowance = 256;

const QTemporaryDir &folder()
{
    static const QTemporaryDir dir;
    Require(dir.isValid(), "no temporary folder for the fuzz input");
    return dir;
}

} // namespace

QString InputFile(const std::uint8_t *data, std::size_t size)
{
    const QString path = folder().filePath(QStringLiteral("input.xml"));
    QFile file(path);
    Require(file.open(QIODevice::WriteOnly | QIODevice::Truncate), "cannot write the fuzz input");
    Require(file.write(reinterpret_cast<const char *>(data), qint64(size)) == qint64(size),
            "cannot write the fuzz input");
    return path;
}

QString OutputFile() { return folder().filePath(QStringLiteral("saved.xml")); }

void Require(bool condition, const char *what)
{
    if (condition)
        return;
    std::fprintf(stderr, "fuzz finding: %s\n", what);
    std::abort();
}

void RequireSavedTextLoads(const pugi::xml_document &document, std::size_t inputSize)
{
    const QByteArray text = XmlDocumentText(document);
    Require(LoadXmlText(QString::fromUtf8(text)) != nullptr, "the saved text does not load again");
    if (inputSize > 0)
        Require(std::size_t(text.size()) <= maxGrowthFactor * inputSize + growthAllowance,
                "saving grew the document by more than a small factor");
}

} // namespace bravcpl5::fuzz
