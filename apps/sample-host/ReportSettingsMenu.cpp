#include "ReportSettingsMenu.h"

#include "MainWindow.h"
#include "SampleHost.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>

namespace {

QString sampleReport(MainWindow &window)
{
    return QDir(window.host()->dataFolder())
        .filePath(QStringLiteral("System/Reports/Order Summary.xml"));
}

// Opens `member` (ShowGeneralReportFilters or ShowGeneralReportFields) on `file` by name,
// as an automation client would, and logs the answer and the file as it now stands.
void openDialog(MainWindow &window, const char *member, const QString &file)
{
    bool confirmed = false;
    QMetaObject::invokeMethod(window.library(), member, Q_RETURN_ARG(bool, confirmed),
                              Q_ARG(QString, file));
    window.log(QStringLiteral("%1(\"%2\") returned %3")
                   .arg(QLatin1String(member), file,
                        confirmed ? QStringLiteral("True") : QStringLiteral("False")));
    QFile saved(file);
    if (saved.open(QIODevice::ReadOnly))
        window.log(QString::fromUtf8(saved.readAll()).trimmed());
}

void addCommand(MainWindow &window, QMenu *menu, const QString &text, const char *member,
                const QString &screenshot)
{
    QAction *sample = menu->addAction(text);
    QObject::connect(sample, &QAction::triggered, &window,
                     [&window, member]() { openDialog(window, member, sampleReport(window)); });
    window.addTourAction(sample, screenshot);
}

} // namespace

void addReportSettingsMenu(MainWindow &window)
{
    QMenu *menu = window.addSubsystemMenu(QStringLiteral("&Reports"));
    addCommand(window, menu, QStringLiteral("Report &Filters..."), "ShowGeneralReportFilters",
               QStringLiteral("report-filters"));
    addCommand(window, menu, QStringLiteral("Report F&ields..."), "ShowGeneralReportFields",
               QStringLiteral("report-fields"));
    menu->addSeparator();
    const struct {
        QString text;
        const char *member;
    } others[] = {{QStringLiteral("Filters of Another Report..."), "ShowGeneralReportFilters"},
                  {QStringLiteral("Fields of Another Report..."), "ShowGeneralReportFields"}};
    for (const auto &other : others) {
        QAction *action = menu->addAction(other.text);
        QObject::connect(action, &QAction::triggered, &window, [&window, other]() {
            const QString file = QFileDialog::getOpenFileName(
                &window, other.text.chopped(3), QFileInfo(sampleReport(window)).absolutePath(),
                QStringLiteral("Report configurations (*.xml);;All files (*)"));
            if (!file.isEmpty())
                openDialog(window, other.member, file);
        });
    }
}
