#include "layout/ReportLayout.h"

namespace bravcpl5 {

ReportLayout::ReportLayout(QObject *parent) : Service(parent) {}

} // namespace bravcpl5
