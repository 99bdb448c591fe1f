#include "printing/PrinterConfigurations.h"

namespace bravcpl5 {

PrinterConfigurations::PrinterConfigurations(QObject *parent) : Service(parent) {}

} // namespace bravcpl5
