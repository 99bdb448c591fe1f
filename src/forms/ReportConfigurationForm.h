#pragma once

// The dialogs that edit part of a general report's configuration file (its filters, its
// fields): they load the file when they are set up, write it back on OK, and remember
// their place. Cancelled starts True, so only OK reads as confirmed.

#include "forms/ModalForm.h"
#include "library/Xml.h"

namespace bravcpl5 {

class ReportConfigurationForm : public ModalForm
{
    Q_OBJECT

public:
    // Keeps the file and owner, and loads the file when it can.
    void SetConfiguration(const QString &ConfigurationFile, HostLink *owner);

protected:
    explicit ReportConfigurationForm(QWidget *parent);

    const QString &configurationFile() const { return m_file; }
    // Null when the file could not be loaded.
    pugi::xml_document *document() const { return m_document.get(); }

private:
    QString m_file;
    XmlDocumentPtr m_document;
};

} // namespace bravcpl5
