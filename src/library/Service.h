#pragma once

// Base of the library's two services (PrinterConfigurations, ReportLayout). A service
// keeps a back reference to the Library that created it, published read-only as `Owner`;
// only the Library sets and clears it. Services never keep the host object: they reach it
// through Owner.SharedCodeLibrary each time, so PreTerminate cuts them off from it.

#include "bravcpl5_export.h"
#include "library/HostLink.h"

#include <QObject>
#include <QPointer>

namespace bravcpl5 {

class Library;

class BRAVCPL5_EXPORT Service : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject *Owner READ ownerObject)

public:
    // The owner as the ground floor knows it; callers above the services may cast it.
    HostLink *owner() const;
    QObject *ownerObject() const;
    // Owner.SharedCodeLibrary, or null when there is no owner or no host.
    QObject *host() const;

protected:
    explicit Service(QObject *parent = nullptr);
    // Called right after the Library has set the owner, and just before it clears it,
    // for services that keep state tied to their owner.
    virtual void ownerAttached() {}
    virtual void ownerReleasing() {}

private:
    friend class Library;
    void setOwner(HostLink *owner);
    void clearOwner();

    QPointer<HostLink> m_owner;
};

} // namespace bravcpl5
