#include "support/PpdText.h"

#include <QFile>
#include <cups/ppd.h>

namespace bravcpl5::test {

namespace {

struct Line {
    QByteArray keyword; // without the star, with a language prefix if any ("de.InputSlot")
    QByteArray option;  // "Letter/US Letter"
    QByteArray value;
};

// "*Keyword option/text: value"; false for comments and continuation lines.
bool splitLine(const QByteArray &raw, Line &line)
{
    if (!raw.startsWith('*') || raw.startsWith("*%"))
        return false;
    const qsizetype colon = raw.indexOf(':');
    if (colon < 0)
        return false;
    const QByteArray head = raw.mid(1, colon - 1).trimmed();
    const qsizetype space = head.indexOf(' ');
    line.keyword = space < 0 ? head : head.left(space);
    line.option = space < 0 ? QByteArray() : head.mid(space + 1).trimmed();
    line.value = raw.mid(colon + 1).trimmed();
    return true;
}

std::pair<QByteArray, QByteArray> keywordAndText(const QByteArray &option)
{
    const qsizetype slash = option.indexOf('/');
    if (slash < 0)
        return {option, QByteArray()};
    return {option.left(slash), option.mid(slash + 1)};
}

QByteArray unquoted(const QByteArray &value)
{
    QByteArray v = value;
    if (v.startsWith('"'))
        v = v.mid(1);
    if (v.endsWith('"'))
        v.chop(1);
    return v.trimmed();
}

} // namespace

const PpdChoice *PpdOption::choice(const QString &keyword) const
{
    for (const PpdChoice &c : choices) {
        if (c.keyword == keyword)
            return &c;
    }
    return nullptr;
}

const PpdOption *PpdText::option(const QString &keyword) const
{
    for (const PpdOption &o : options) {
        if (o.keyword == keyword)
            return &o;
    }
    return nullptr;
}

PpdText ParsePpd(const QByteArray &contents)
{
    PpdText ppd;
    ppd.found = !contents.isEmpty();
    // Main texts are in the declared encoding; translations ("*de.") are always UTF-8.
    const bool latin1 = contents.contains("*LanguageEncoding: ISOLatin1");
    const auto text = [&](const QByteArray &bytes, bool translation) {
        return latin1 && !translation ? QString::fromLatin1(bytes) : QString::fromUtf8(bytes);
    };
    QString group;
    for (const QByteArray &raw : contents.split('\n')) {
        Line line;
        if (!splitLine(raw.trimmed(), line))
            continue;
        const auto [keyword, label] = keywordAndText(line.option);
        if (line.keyword == "OpenGroup") {
            group = QString::fromUtf8(keywordAndText(line.value).first);
        } else if (line.keyword == "OpenUI" || line.keyword == "JCLOpenUI") {
            ppd.options.append({text(keyword.mid(1), false), text(label, false), group, {}, {}});
        } else if (line.keyword == "PaperDimension") {
            const QList<QByteArray> wh = unquoted(line.value).simplified().split(' ');
            if (wh.size() == 2)
                ppd.dimensions.insert(QString::fromUtf8(keyword),
                                      QSizeF(wh[0].toDouble(), wh[1].toDouble()));
        } else if (line.keyword == "ImageableArea") {
            const QList<QByteArray> box = unquoted(line.value).simplified().split(' ');
            if (box.size() == 4)
                ppd.imageableAreas.insert(QString::fromUtf8(keyword),
                                          QRectF(QPointF(box[0].toDouble(), box[1].toDouble()),
                                                 QPointF(box[2].toDouble(), box[3].toDouble())));
        } else if (line.keyword.startsWith("Default")) {
            for (PpdOption &o : ppd.options) {
                if (o.keyword.toUtf8() == line.keyword.mid(7))
                    o.defaultChoice = QString::fromUtf8(line.value);
            }
        } else {
            // A choice of an option opened earlier, or its translation.
            const qsizetype dot = line.keyword.indexOf('.');
            const bool translated = dot > 0 && dot < 6;
            const QByteArray optionName = translated ? line.keyword.mid(dot + 1) : line.keyword;
            for (PpdOption &o : ppd.options) {
                if (o.keyword.toUtf8() != optionName || keyword.isEmpty())
                    continue;
                const QString choiceKeyword = QString::fromUtf8(keyword);
                if (!translated && !o.choice(choiceKeyword))
                    o.choices.append(
                        {choiceKeyword, label.isEmpty() ? choiceKeyword : text(label, false), {}});
                else if (translated)
                    for (PpdChoice &c : o.choices)
                        if (c.keyword == choiceKeyword)
                            c.translations.insert(QString::fromUtf8(line.keyword.left(dot)),
                                                  text(label, true));
            }
        }
    }
    return ppd;
}

// cupsGetPPD2 is deprecated with the rest of the PPD interface, and is still the way to
// fetch a queue's PPD.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
PpdText ReadQueuePpd(const QString &queue)
{
    const char *path = cupsGetPPD2(CUPS_HTTP_DEFAULT, queue.toUtf8().constData());
    if (!path)
        return {};
    QFile file(QString::fromLocal8Bit(path));
    const QByteArray contents = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    file.remove();
    return ParsePpd(contents);
}
#pragma GCC diagnostic pop

} // namespace bravcpl5::test
