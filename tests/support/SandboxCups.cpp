#include "support/SandboxCups.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QThread>
#include <cups/cups.h>

namespace bravcpl5::test {

bool CupsReachable()
{
    http_t *http = httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                                2000, nullptr);
    if (!http)
        return false;
    httpClose(http);
    return true;
}

QHash<QString, QString> FinishedJobAttributes(int jobId)
{
    QHash<QString, QString> attributes;
    const QByteArray uri = "ipp://localhost/jobs/" + QByteArray::number(jobId);
    for (int tries = 0; tries < 100; ++tries) {
        if (tries > 0)
            QThread::msleep(100);
        attributes.clear();
        ipp_t *request = ippNewRequest(IPP_OP_GET_JOB_ATTRIBUTES);
        ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_URI, "job-uri", nullptr, uri.constData());
        // The owner sees the job's private values (its name) too.
        ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr,
                     cupsUser());
        ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes", nullptr,
                     "all");
        ipp_t *response = cupsDoRequest(CUPS_HTTP_DEFAULT, request, "/");
        for (ipp_attribute_t *a = ippFirstAttribute(response); a; a = ippNextAttribute(response)) {
            if (!ippGetName(a))
                continue;
            char value[1024];
            const ipp_tag_t tag = ippGetValueTag(a);
            if (tag == IPP_TAG_ENUM || tag == IPP_TAG_INTEGER)
                qsnprintf(value, sizeof value, "%d", ippGetInteger(a, 0));
            else
                ippAttributeString(a, value, sizeof value);
            attributes.insert(QString::fromUtf8(ippGetName(a)), QString::fromUtf8(value));
        }
        ippDelete(response);
        if (attributes.value(QStringLiteral("job-state")).toInt() >= IPP_JSTATE_CANCELED)
            break;
    }
    return attributes;
}

QHash<QString, QString> JobFilterOptions(int jobId)
{
    FinishedJobAttributes(jobId);
    QFile log(qEnvironmentVariable("BRAVCPL5_CUPS_LOG"));
    if (!log.open(QIODevice::ReadOnly))
        return {};
    // [Job 12] argv[5]="media=A4.FullBleed PageSize=A4.FullBleed ..."
    const QByteArray marker = "[Job " + QByteArray::number(jobId) + "] argv[5]=\"";
    QByteArray options;
    for (const QByteArray &line : log.readAll().split('\n')) {
        const qsizetype at = line.indexOf(marker);
        if (at >= 0 && line.endsWith('"'))
            options = line.mid(at + marker.size()).chopped(1);
    }
    cups_option_t *parsed = nullptr;
    const int count = cupsParseOptions(options.constData(), 0, &parsed);
    QHash<QString, QString> result;
    for (int i = 0; i < count; ++i)
        result.insert(QString::fromUtf8(parsed[i].name), QString::fromUtf8(parsed[i].value));
    cupsFreeOptions(count, parsed);
    return result;
}

bool SaveJobDocument(const QString &queue, int jobId, const QString &file)
{
    QFile out(file);
    if (!out.open(QIODevice::WriteOnly))
        return false;
    ipp_t *request = ippNewRequest(IPP_OP_CUPS_GET_DOCUMENT);
    const QByteArray uri = "ipp://localhost/printers/" + queue.toUtf8();
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, uri.constData());
    ippAddInteger(request, IPP_TAG_OPERATION, IPP_TAG_INTEGER, "job-id", jobId);
    ippAddInteger(request, IPP_TAG_OPERATION, IPP_TAG_INTEGER, "document-number", 1);
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr,
                 cupsUser());
    ipp_t *response = cupsDoIORequest(CUPS_HTTP_DEFAULT, request, "/", -1, out.handle());
    const bool saved = response && ippGetStatusCode(response) <= IPP_STATUS_OK_EVENTS_COMPLETE;
    ippDelete(response);
    out.close();
    return saved && out.size() > 0;
}

PdfFacts ReadPdfFacts(const QString &file)
{
    PdfFacts facts;
    QProcess pdfinfo;
    pdfinfo.start(QStringLiteral("pdfinfo"), {file});
    if (!pdfinfo.waitForFinished(10000) || pdfinfo.exitCode() != 0)
        return facts;
    const QString text = QString::fromUtf8(pdfinfo.readAllStandardOutput());
    const auto pages = QRegularExpression(QStringLiteral("Pages:\\s+(\\d+)")).match(text);
    const auto size =
        QRegularExpression(QStringLiteral("Page size:\\s+([\\d.]+) x ([\\d.]+) pts")).match(text);
    const auto rotation = QRegularExpression(QStringLiteral("Page rot:\\s+(\\d+)")).match(text);
    facts.pages = pages.captured(1).toInt();
    facts.pageSize = QSizeF(size.captured(1).toDouble(), size.captured(2).toDouble());
    if (rotation.captured(1).toInt() % 180 == 90)
        facts.pageSize.transpose();
    return facts;
}

} // namespace bravcpl5::test
