#pragma once

#include "library/Service.h"

namespace bravcpl5 {

// The report-layout service: report fonts, the formatting of report controls and the
// general report layout.
class ReportLayout : public Service
{
    Q_OBJECT
    Q_CLASSINFO("ProgId", "bravcpl5.ReportLayout")

public:
    Q_INVOKABLE explicit ReportLayout(QObject *parent = nullptr);
};

} // namespace bravcpl5
