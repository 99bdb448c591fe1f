#pragma once

#include "report/ReportControl.h"

namespace bravcpl5 {

// A reference report label: prints its Caption.
class ReportLabel : public ReportControl
{
    Q_OBJECT
    Q_PROPERTY(QString Caption MEMBER m_caption)

public:
    Q_INVOKABLE explicit ReportLabel(QObject *parent = nullptr) : ReportControl(parent) {}

protected:
    QString displayText() const override { return m_caption; }

private:
    QString m_caption;
};

} // namespace bravcpl5
