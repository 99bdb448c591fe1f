#include "ConfigurationPage.h"

#include "library/HostContract.h"
#include "library/Xml.h"

#include <QDir>
#include <QFileInfo>
#include <QPageSize>
#include <QSizeF>

namespace {

using namespace bravcpl5;

QString configurationFile(QObject *host, const QString &name)
{
    for (const QString &folder : {host::userFileLocation(host), host::systemFileLocation(host)}) {
        const QString path = QDir(folder).filePath(name + QStringLiteral(".pcx"));
        if (!folder.isEmpty() && QFileInfo(path).isFile())
            return path;
    }
    return QString();
}

// The system's paper codes that the sample configurations use; 256 and above: custom.
QPageSize pageSize(int code, float widthInches, float heightInches)
{
    switch (code) {
    case 3: return QPageSize(QPageSize::Tabloid);
    case 5: return QPageSize(QPageSize::Legal);
    case 8: return QPageSize(QPageSize::A3);
    case 9: return QPageSize(QPageSize::A4);
    case 11: return QPageSize(QPageSize::A5);
    default: break;
    }
    if (code >= 256 && widthInches > 0 && heightInches > 0)
        return QPageSize(QSizeF(widthInches, heightInches), QPageSize::Inch, QStringLiteral("Custom"));
    return QPageSize(QPageSize::Letter);
}

} // namespace

QPageLayout PageLayoutFromConfiguration(QObject *host, const QString &name)
{
    QPageLayout layout(QPageSize(QPageSize::Letter), QPageLayout::Portrait, QMarginsF(1, 1, 1, 1),
                       QPageLayout::Inch);
    const XmlDocumentPtr document = LoadXmlFile(configurationFile(host, name));
    if (!document)
        return layout;
    const pugi::xml_node setup = SelectSingleNode(*document, QStringLiteral("//PageSetup")).node();
    if (!setup)
        return layout;
    auto inches = [&](const char *element, float fallback) {
        return qreal(GetXmlSingle(QString::fromLatin1(element), setup, fallback));
    };
    layout.setPageSize(pageSize(GetXmlInteger(QStringLiteral("PaperSize"), setup, 1), float(inches("PaperWidth", 0)),
                                float(inches("PaperHeight", 0))));
    layout.setOrientation(GetXmlInteger(QStringLiteral("Orientation"), setup, 0) != 0 ? QPageLayout::Landscape
                                                                                      : QPageLayout::Portrait);
    layout.setMinimumMargins(QMarginsF());
    layout.setMargins(QMarginsF(inches("LeftMargin", 1) + inches("Gutter", 0), inches("TopMargin", 1),
                                inches("RightMargin", 1), inches("BottomMargin", 1)));
    return layout;
}
