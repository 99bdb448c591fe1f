#pragma once

// Where tests leave pictures and documents for a person to look at: the folder named by
// BRAVCPL5_TEST_OUTPUT, else "test-output" in the working folder (build/tests under ctest).

#include <QDir>
#include <QString>

namespace bravcpl5::test {

inline QString testOutputPath(const QString &fileName)
{
    const QString named = qEnvironmentVariable("BRAVCPL5_TEST_OUTPUT");
    const QDir folder(named.isEmpty() ? QDir::current().filePath(QStringLiteral("test-output"))
                                      : named);
    folder.mkpath(QStringLiteral("."));
    return folder.filePath(fileName);
}

} // namespace bravcpl5::test
