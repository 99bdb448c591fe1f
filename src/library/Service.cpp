#include "library/Service.h"

namespace bravcpl5 {

Service::Service(QObject *parent) : QObject(parent) {}

HostLink *Service::owner() const { return m_owner.data(); }
QObject *Service::ownerObject() const { return m_owner.data(); }
QObject *Service::host() const { return m_owner ? m_owner->sharedCodeLibrary() : nullptr; }

void Service::setOwner(HostLink *owner)
{
    m_owner = owner;
    ownerAttached();
}

void Service::clearOwner()
{
    ownerReleasing();
    m_owner.clear();
}

} // namespace bravcpl5
