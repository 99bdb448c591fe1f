#include "library/Logging.h"

namespace bravcpl5 {

Q_LOGGING_CATEGORY(lcXml, "bravcpl5.xml", QtWarningMsg)
Q_LOGGING_CATEGORY(lcPrinters, "bravcpl5.printers", QtWarningMsg)
Q_LOGGING_CATEGORY(lcStore, "bravcpl5.store", QtWarningMsg)

} // namespace bravcpl5
