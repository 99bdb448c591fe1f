#pragma once

#include "report/ReportControl.h"

namespace bravcpl5 {

// A reference report field: bound to a data field by name, prints the Text the report
// gave it for the current record.
class ReportField : public ReportControl
{
    Q_OBJECT
    Q_PROPERTY(QString DataField MEMBER m_dataField)
    Q_PROPERTY(QString Text MEMBER m_text)

public:
    Q_INVOKABLE explicit ReportField(QObject *parent = nullptr) : ReportControl(parent) {}

protected:
    QString displayText() const override { return m_text; }

private:
    QString m_dataField;
    QString m_text;
};

} // namespace bravcpl5
