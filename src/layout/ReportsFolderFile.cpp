#include "layout/ReportsFolderFile.h"

#include "library/HostContract.h"

namespace bravcpl5 {

QString ResolveReportsFile(QObject *host, const QString &fileName, bool forceUser)
{
    const QString userFolder = host::userFileLocation(host);
    if (!userFolder.isEmpty()) {
        const QString candidate = PathInFolder(userFolder, fileName);
        if (forceUser || FileExists(candidate))
            return candidate;
    }
    const QString systemFolder = host::systemFileLocation(host);
    if (!systemFolder.isEmpty()) {
        const QString candidate = PathInFolder(systemFolder, fileName);
        if (FileExists(candidate))
            return candidate;
    }
    return QString();
}

} // namespace bravcpl5
