#include "library/Library.h"

#include <new>

namespace bravcpl5 {

Library::Library(QObject *parent) : HostLink(parent) {}

Library::~Library() = default;

QObject *Library::sharedCodeLibrary() const { return m_host.data(); }

template <typename T> T *Library::service(QPointer<T> &field)
{
    if (!field) {
        // Services are children of the Library, so they never outlive it.
        field = new (std::nothrow) T(this);
        if (field)
            field->setOwner(this);
    }
    return field.data();
}

bravcpl5::PrinterConfigurations *Library::printerConfigurations()
{
    return service(m_printerConfigurations);
}

bravcpl5::ReportLayout *Library::reportLayout() { return service(m_reportLayout); }

template <typename T> void Library::release(QPointer<T> &field)
{
    // A caller further up the stack may still hold the old service, so it is deleted
    // once control returns to the event loop (or with the Library).
    if (field) {
        field->clearOwner();
        field->deleteLater();
        field.clear();
    }
}

void Library::Initialize(QObject *oSCL) { m_host = oSCL; }

void Library::PreTerminate()
{
    release(m_printerConfigurations);
    release(m_reportLayout);
    m_host.clear();
}

} // namespace bravcpl5
