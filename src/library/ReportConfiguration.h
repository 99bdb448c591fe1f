#pragma once

#include "bravcpl5_export.h"

#include <QObject>

namespace bravcpl5 {

// A type with no members of its own, so that a host can hand a report's configuration
// around as an object of a stable type. Nothing in the library reads or writes it.
class BRAVCPL5_EXPORT ReportConfiguration : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("ProgId", "bravcpl5.ReportConfiguration")

public:
    Q_INVOKABLE explicit ReportConfiguration(QObject *parent = nullptr) : QObject(parent) {}
};

} // namespace bravcpl5
