#include "forms/ReportConfigurationForm.h"

namespace bravcpl5 {

ReportConfigurationForm::ReportConfigurationForm(QWidget *parent)
    : ModalForm(parent, true, Placement::Remembered)
{}

void ReportConfigurationForm::SetConfiguration(const QString &ConfigurationFile, HostLink *owner)
{
    m_file = ConfigurationFile;
    setOwner(owner);
    m_document = LoadXmlFile(ConfigurationFile);
}

} // namespace bravcpl5
