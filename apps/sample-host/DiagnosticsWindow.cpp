#include "DiagnosticsWindow.h"

#include "library/LateBinding.h"
#include "library/RegistryFile.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace bravcpl5;

DiagnosticsWindow::DiagnosticsWindow(QObject *library, QWidget *parent)
    : QDialog(parent), m_library(library), m_state(new QPlainTextEdit), m_log(new QPlainTextEdit)
{
    setObjectName(QStringLiteral("diagnostics"));
    setWindowTitle(QStringLiteral("Diagnostics"));
    for (QPlainTextEdit *text : {m_state, m_log}) {
        text->setReadOnly(true);
        text->setLineWrapMode(QPlainTextEdit::NoWrap);
        text->setFont(QFont(QStringLiteral("DejaVu Sans Mono"), 9));
    }
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QPushButton *refresh = buttons->addButton(QStringLiteral("&Refresh"),
                                              QDialogButtonBox::ActionRole);
    connect(refresh, &QPushButton::clicked, this, [this]() { m_state->setPlainText(state()); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(QStringLiteral("The library's objects and documents:")));
    layout->addWidget(m_state, 3);
    layout->addWidget(new QLabel(QStringLiteral("Calls made by the sample host:")));
    layout->addWidget(m_log, 1);
    layout->addWidget(buttons);
    resize(820, 640);
}

void DiagnosticsWindow::log(const QString &line) { m_log->appendPlainText(line); }

void DiagnosticsWindow::showUpdated()
{
    m_state->setPlainText(state());
    show();
    raise();
}

QString DiagnosticsWindow::state() const
{
    // Everything goes through the published names, as an automation client's would.
    QObject *host = late::object(m_library, "SharedCodeLibrary");
    QObject *store = late::object(m_library, "PrinterConfigurations");
    QObject *reportLayout = late::object(m_library, "ReportLayout");
    QObject *options = late::object(host, "Options");
    const auto owned = [this](QObject *service) {
        return !service ? QStringLiteral("missing")
               : late::object(service, "Owner") == m_library
                   ? QStringLiteral("created, Owner is the Library")
                   : QStringLiteral("created, Owner is not the Library");
    };
    QStringList lines = {
        QStringLiteral("Host (SharedCodeLibrary): %1")
            .arg(host ? QStringLiteral("set") : QStringLiteral("not set")),
        QStringLiteral("PrinterConfigurations: %1").arg(owned(store)),
        QStringLiteral("ReportLayout: %1").arg(owned(reportLayout)),
        QStringLiteral("System reports folder: %1")
            .arg(late::text(options, "SystemFileLocation", {QStringLiteral("Reports")})),
        QStringLiteral("User reports folder: %1")
            .arg(late::text(options, "UserFileLocation", {QStringLiteral("Reports")})),
        QStringLiteral("Registry file: %1").arg(QDir::toNativeSeparators(RegistryFile())),
        QString(),
        QStringLiteral("GetPrinterConfigurations(False):")};
    for (const QString &entry :
         late::value(store, "GetPrinterConfigurations", {false}).toStringList())
        lines << QStringLiteral("  \"%1\"").arg(entry);
    const struct {
        const char *member;
        QVariantList args;
    } documents[] = {{"LoadGeneralReportLayout", {}},
                     {"LoadGeneralReportFonts", {false}},
                     {"LoadProcessReportFonts", {}}};
    for (const auto &document : documents) {
        lines << QString() << QStringLiteral("%1:").arg(QLatin1String(document.member))
              << late::text(reportLayout, document.member, document.args).trimmed();
    }
    return lines.join(u'\n');
}
