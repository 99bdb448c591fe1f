// A second process for the registry tests: makes COUNT assignments named PREFIX0,
// PREFIX1, ... in the registry file FILE, each a write of its own, as a host on another
// workstation sharing the file would. With "hold", takes the file's lock instead and
// waits to be killed, leaving the lock behind. With "read NAME", prints the assignment
// NAME (or "<missing>"), so that a test can see that a lookup returns at all.

#include "library/Registry.h"

#include <QCoreApplication>
#include <QLockFile>
#include <QThread>
#include <cstdio>

namespace {

const QString key = QStringLiteral(
    "Software\\Tarnwell\\Lumarest\\5.0\\Settings (Acme)\\Printer Configurations");

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() == 3 && args[2] == QLatin1String("hold")) {
        QLockFile lock(args[1] + QStringLiteral(".lock"));
        if (!lock.tryLock(0))
            return 2;
        std::puts("locked");
        std::fflush(stdout);
        QThread::sleep(60);
        return 0;
    }
    if (args.size() != 4)
        return 2;
    bravcpl5::SetRegistryFile(args[1]);
    if (args[2] == QLatin1String("read")) {
        std::puts(bravcpl5::GetRegValue(bravcpl5::HKEY_CURRENT_USER_HANDLE, key, args[3],
                                        QStringLiteral("<missing>"))
                      .toUtf8()
                      .constData());
        return 0;
    }
    const int count = args[3].toInt();
    int failed = 0;
    for (int i = 0; i < count; ++i)
        if (!bravcpl5::SetRegValue(bravcpl5::HKEY_CURRENT_USER_HANDLE, key,
                                   args[2] + QString::number(i), QStringLiteral("Office-Laser")))
            ++failed;
    return failed == 0 ? 0 : 1;
}
