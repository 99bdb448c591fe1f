#pragma once

// A Library over a TestHost, with its own registry file, for tests of the printer
// configuration store and what builds on it.

#include "library/Library.h"
#include "library/Registry.h"
#include "support/QtPrinters.h"
#include "support/TestHost.h"

#include <QByteArray>
#include <QDir>
#include <gtest/gtest.h>

namespace bravcpl5::test {

// A configuration file whose "PageSetup" holds `pageSetup` (element text as given);
// `system` > 0 marks it a system configuration.
inline QByteArray configurationXml(const QByteArray &pageSetup, int system = 0)
{
    return "<?xml version=\"1.0\"?>\n<PrinterConfiguration>"
           "<Identification><System>"
           + QByteArray::number(system)
           + "</System></Identification>"
             "<PageSetup>"
           + pageSetup + "</PageSetup></PrinterConfiguration>\n";
}

class StoreFixture : public ::testing::Test
{
protected:
    void SetUp() override
    {
        previousRegistry = RegistryFile();
        SetRegistryFile(QDir(host.root()).filePath(QStringLiteral("registry.ini")));
        library.Initialize(&host);
        store = library.printerConfigurations();
    }
    void TearDown() override
    {
        library.PreTerminate();
        SetRegistryFile(previousRegistry);
    }

    QString previousRegistry;
    TestHost host;
    Library library;
    PrinterConfigurations *store = nullptr;
};

} // namespace bravcpl5::test
