#pragma once

#include "bravcpl5_export.h"
#include "layout/ReportLayout.h"
#include "library/HostLink.h"
#include "printing/PrinterConfigurations.h"

#include <QObject>
#include <QPointer>

namespace bravcpl5 {

// The facade a host creates once. It keeps the host's service object (Initialize) and
// hands out the two services, each created on first read with its Owner set to this
// Library. PreTerminate must be called before the host lets go of the Library: it cuts
// the services off from it and from the host.
class BRAVCPL5_EXPORT Library : public HostLink
{
    Q_OBJECT
    Q_CLASSINFO("ProgId", "bravcpl5.Library")
    Q_PROPERTY(QObject *SharedCodeLibrary READ sharedCodeLibrary)
    Q_PROPERTY(bravcpl5::PrinterConfigurations *PrinterConfigurations READ printerConfigurations)
    Q_PROPERTY(bravcpl5::ReportLayout *ReportLayout READ reportLayout)

public:
    Q_INVOKABLE explicit Library(QObject *parent = nullptr);
    ~Library() override;

    QObject *sharedCodeLibrary() const override;
    // Created on first read; null only when creation failed.
    bravcpl5::PrinterConfigurations *printerConfigurations();
    bravcpl5::ReportLayout *reportLayout();

    // Keeps `oSCL` as the host; nothing is called on it here. Calling again replaces it.
    Q_INVOKABLE void Initialize(QObject *oSCL);
    // Clears each service's Owner, lets go of the services and forgets the host.
    // Harmless when called again.
    Q_INVOKABLE void PreTerminate();

    // The report filters dialog on a report's configuration file; true when the user
    // confirmed it with OK and the values were saved, false for Cancel or the close box.
    // Defined beside its dialog, in forms/frmGeneralReportFilters.cpp.
    Q_INVOKABLE bool ShowGeneralReportFilters(const QString &ConfigurationFile);
    // The report fields dialog on a report's configuration file; true when the user
    // confirmed it with OK (the sizes are then saved), false for Cancel or the close box.
    // Defined beside its dialog, in forms/frmGeneralReportFields.cpp.
    Q_INVOKABLE bool ShowGeneralReportFields(const QString &ConfigurationFile);
    // The printer configurations dialog: every configuration with its printer on this
    // machine, renamed, copied, deleted and set up there. Defined beside its dialog, in
    // forms/frmPrinterConfigurations.cpp.
    Q_INVOKABLE void ShowPrinterConfigurations();

private:
    template <typename T> T *service(QPointer<T> &field);
    template <typename T> void release(QPointer<T> &field);

    QPointer<QObject> m_host;
    QPointer<bravcpl5::PrinterConfigurations> m_printerConfigurations;
    QPointer<bravcpl5::ReportLayout> m_reportLayout;
};

} // namespace bravcpl5
