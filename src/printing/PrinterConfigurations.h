#pragma once

#include "library/Service.h"

namespace bravcpl5 {

// The printer-configuration service: the named configurations of the system and user
// folders, the printer each one prints to, and their page setup.
class PrinterConfigurations : public Service
{
    Q_OBJECT
    Q_CLASSINFO("ProgId", "bravcpl5.PrinterConfigurations")

public:
    Q_INVOKABLE explicit PrinterConfigurations(QObject *parent = nullptr);
};

} // namespace bravcpl5
