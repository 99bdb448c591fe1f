#pragma once

// How the services and the dialogs reach the host's service object without knowing the
// Library: their owner is a HostLink, and they ask it for Owner.SharedCodeLibrary each time
// they need the host. The Library is the one implementation; tests may give their own.

#include "bravcpl5_export.h"

#include <QObject>

namespace bravcpl5 {

class BRAVCPL5_EXPORT HostLink : public QObject
{
    Q_OBJECT

public:
    // The host object given to the owner; null before it has one or after it let go.
    virtual QObject *sharedCodeLibrary() const = 0;

protected:
    explicit HostLink(QObject *parent = nullptr) : QObject(parent) {}
};

} // namespace bravcpl5
