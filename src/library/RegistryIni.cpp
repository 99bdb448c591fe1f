#include "library/RegistryIni.h"

#include <QStringList>

namespace bravcpl5 {

namespace {

bool isBlank(QChar c) { return c == QLatin1Char(' ') || c == QLatin1Char('\t'); }

// `special` lists what the context reads as syntax; control characters, "%" and a blank
// at either end are escaped everywhere.
QString escaped(const QString &text, QLatin1StringView special, QLatin1StringView specialFirst = {})
{
    QString out;
    out.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        const bool atEdge = i == 0 || i == text.size() - 1;
        if (c.unicode() < 0x20 || c.unicode() == 0x7f || c == QLatin1Char('%')
            || special.contains(c) || (i == 0 && specialFirst.contains(c))
            || (atEdge && isBlank(c)))
            out += QStringLiteral("%%1").arg(c.unicode(), 2, 16, QLatin1Char('0')).toUpper();
        else
            out += c;
    }
    return out;
}

bool isHexDigit(QChar c)
{
    return (c >= QLatin1Char('0') && c <= QLatin1Char('9'))
           || (c >= QLatin1Char('A') && c <= QLatin1Char('F'))
           || (c >= QLatin1Char('a') && c <= QLatin1Char('f'));
}

// A "%" not followed by two hex digits is kept as it stands, so hand-written text survives.
QString unescaped(QStringView text)
{
    if (!text.contains(QLatin1Char('%')))
        return text.toString();
    QString out;
    out.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text.at(i) == QLatin1Char('%') && i + 2 < text.size() && isHexDigit(text.at(i + 1))
            && isHexDigit(text.at(i + 2))) {
            out += QChar(text.mid(i + 1, 2).toUShort(nullptr, 16));
            i += 2;
            continue;
        }
        out += text.at(i);
    }
    return out;
}

QString groupName(const QString &keyPath)
{
    QStringList parts = keyPath.split(QLatin1Char('\\'));
    for (QString &part : parts)
        part = escaped(part, QLatin1StringView("/[]"));
    return parts.join(QLatin1Char('/'));
}

QString keyPath(QStringView group)
{
    QStringList parts;
    for (QStringView part : group.split(QLatin1Char('/')))
        parts << unescaped(part);
    return parts.join(QLatin1Char('\\'));
}

QStringView trimmedBlanks(QStringView text)
{
    while (!text.isEmpty() && isBlank(text.front()))
        text = text.mid(1);
    while (!text.isEmpty() && isBlank(text.back()))
        text.chop(1);
    return text;
}

} // namespace

RegistryIni RegistryIni::parse(const QByteArray &text)
{
    RegistryIni ini;
    QString all = QString::fromUtf8(text);
    if (all.startsWith(QChar(0xFEFF)))
        all.remove(0, 1); // a byte-order mark from an editor
    qsizetype currentKey = -1;
    bool inGeneral = false;
    for (QStringView line : QStringView(all).split(QLatin1Char('\n'))) {
        line = trimmedBlanks(line.endsWith(QLatin1Char('\r')) ? line.chopped(1) : line);
        if (line.isEmpty() || line.startsWith(QLatin1Char(';'))
            || line.startsWith(QLatin1Char('#')))
            continue;
        if (line.startsWith(QLatin1Char('[')) && line.endsWith(QLatin1Char(']'))) {
            const QStringView group = line.mid(1, line.size() - 2);
            inGeneral = group == QLatin1String("General");
            currentKey = ini.keyIndex(keyPath(group));
            continue;
        }
        const qsizetype equals = line.indexOf(QLatin1Char('='));
        if (currentKey < 0 || equals < 0)
            continue;
        const QStringView name = trimmedBlanks(line.left(equals));
        // The flat form spelt the whole path in the name, its "\" as "%5C".
        if (inGeneral && name.contains(QLatin1String("%5C"), Qt::CaseInsensitive)) {
            ini.flatEntries = true;
            continue;
        }
        ini.setValue(ini.keys[currentKey], unescaped(name),
                     unescaped(trimmedBlanks(line.mid(equals + 1))));
    }
    return ini;
}

QByteArray RegistryIni::text() const
{
    QString out;
    for (const Key &key : keys) {
        if (key.values.isEmpty())
            continue; // a group that held only the flat form's entries, or nothing
        if (!out.isEmpty())
            out += QLatin1Char('\n');
        out += QLatin1Char('[') + groupName(key.path) + QLatin1String("]\n");
        for (const Value &value : key.values)
            out += escaped(value.name, QLatin1StringView("="), QLatin1StringView(";#["))
                   + QLatin1Char('=') + escaped(value.data, {}) + QLatin1Char('\n');
    }
    return out.toUtf8();
}

std::optional<QString> RegistryIni::value(const QString &key, const QString &name) const
{
    const auto k = byPath.constFind(key.toCaseFolded());
    if (k == byPath.cend())
        return std::nullopt;
    const Key &found = keys.at(*k);
    const auto v = found.byName.constFind(name.toCaseFolded());
    if (v == found.byName.cend())
        return std::nullopt;
    return found.values.at(*v).data;
}

QList<std::pair<QString, QString>> RegistryIni::values(const QString &key) const
{
    QList<std::pair<QString, QString>> all;
    const auto k = byPath.constFind(key.toCaseFolded());
    if (k != byPath.cend()) {
        for (const Value &value : keys.at(*k).values)
            all.append({value.name, value.data});
    }
    return all;
}

qsizetype RegistryIni::keyIndex(const QString &path)
{
    const QString folded = path.toCaseFolded();
    if (const auto found = byPath.constFind(folded); found != byPath.cend())
        return *found;
    byPath.insert(folded, keys.size());
    keys.append(Key{path, {}, {}});
    return keys.size() - 1;
}

void RegistryIni::setValue(Key &key, const QString &name, const QString &data)
{
    const QString folded = name.toCaseFolded();
    if (const auto found = key.byName.constFind(folded); found != key.byName.cend()) {
        key.values[*found].data = data;
        return;
    }
    key.byName.insert(folded, key.values.size());
    key.values.append(Value{name, data});
}

void RegistryIni::setValue(const QString &key, const QString &name, const QString &data)
{
    setValue(keys[keyIndex(key)], name, data);
}

} // namespace bravcpl5
