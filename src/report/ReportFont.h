#pragma once

#include <QFont>
#include <QObject>
#include <QString>

namespace bravcpl5 {

// The `Font` object of a reference report control, as the report engine's controls
// have it. Size is in points.
class ReportFont : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString Name MEMBER m_name)
    Q_PROPERTY(double Size MEMBER m_size)
    Q_PROPERTY(bool Bold MEMBER m_bold)
    Q_PROPERTY(bool Italic MEMBER m_italic)
    Q_PROPERTY(bool Underline MEMBER m_underline)
    Q_PROPERTY(bool Strikethrough MEMBER m_strikethrough)

public:
    explicit ReportFont(QObject *parent = nullptr) : QObject(parent) {}

    QFont toQFont() const;

private:
    QString m_name = QStringLiteral("Arial");
    double m_size = 10;
    bool m_bold = false;
    bool m_italic = false;
    bool m_underline = false;
    bool m_strikethrough = false;
};

} // namespace bravcpl5
