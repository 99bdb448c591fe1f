#include "library/RegistryIni.h"

#include <QStringList>

namespace bravcpl5 {

namespace {

bool isBlank(char16_t c) { return c == u' ' || c == u'\t'; }

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
            || (atEdge && isBlank(c.unicode())))
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

QString keyPath(const QString &group)
{
    QStringList parts;
    for (QStringView part : QStringView(group).split(QLatin1Char('/')))
        parts << unescaped(part);
    return parts.join(QLatin1Char('\\'));
}

// Blanks at either end of a line or its parts mean nothing, and neither do carriage
// returns there: editors on other systems end lines with one or more, and the writer
// escapes every one that belongs to a value.
bool isEdgeByte(char c) { return isBlank(c) || c == '\r'; }

QByteArrayView trimmedBlanks(QByteArrayView text)
{
    while (!text.isEmpty() && isEdgeByte(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isEdgeByte(text.back()))
        text.chop(1);
    return text;
}

} // namespace

RegistryIni RegistryIni::parse(const QByteArray &text)
{
    RegistryIni ini;
    ini.source = text;
    const QByteArrayView all(ini.source);
    const auto spanOf = [&](QByteArrayView part) {
        return Span{part.data() - all.data(), part.size()};
    };
    qsizetype next = all.startsWith("\xEF\xBB\xBF") ? 3 : 0; // a byte-order mark from an editor
    qsizetype currentKey = -1;
    bool inGeneral = false;
    while (next < all.size()) {
        qsizetype end = ini.source.indexOf('\n', next);
        if (end < 0)
            end = all.size();
        QByteArrayView line = all.sliced(next, end - next);
        next = end + 1;
        line = trimmedBlanks(line);
        if (line.isEmpty() || line.startsWith(';') || line.startsWith('#'))
            continue;
        if (line.startsWith('[') && line.endsWith(']')) {
            const QString group = QString::fromUtf8(line.sliced(1, line.size() - 2));
            // Groups are found without regard to case, "[GeneraL]" being "[General]" too.
            inGeneral = group.compare(QLatin1String("General"), Qt::CaseInsensitive) == 0;
            currentKey = ini.keyIndex(keyPath(group));
            if (ini.keys[currentKey].header.at < 0)
                ini.keys[currentKey].header = spanOf(line);
            continue;
        }
        const qsizetype equals = line.indexOf('=');
        if (currentKey < 0 || equals < 0)
            continue;
        const QByteArrayView name = trimmedBlanks(line.first(equals));
        // The flat form spelt the whole path in the name, its "\" as "%5C".
        if (inGeneral && name.toByteArray().toUpper().contains("%5C")) {
            ini.flatEntries = true;
            continue;
        }
        Key &key = ini.keys[currentKey];
        const qsizetype before = key.values.size();
        Value &value = key.values[valueIndex(key, unescaped(QString::fromUtf8(name)))];
        const Span data = spanOf(trimmedBlanks(line.sliced(equals + 1)));
        if (key.values.size() > before) {
            value.line = spanOf(line);
            value.data = data;
        } else {
            // A name given twice: the later data wins, under the name as first spelt.
            value.setData = ini.decoded(data);
            value.line = value.data = Span();
        }
    }
    return ini;
}

void RegistryIni::text(QByteArray &out) const
{
    out.resize(0); // keeps its room
    out.reserve(source.size() + 1024);
    for (const Key &key : keys) {
        if (key.values.isEmpty())
            continue; // a group that held only the flat form's entries, or nothing
        if (!out.isEmpty())
            out += '\n';
        if (key.header.at >= 0)
            out += bytes(key.header);
        else
            out += (QLatin1Char('[') + groupName(key.path) + QLatin1Char(']')).toUtf8();
        out += '\n';
        for (const Value &value : key.values) {
            if (value.line.at >= 0)
                out += bytes(value.line);
            else
                out += (escaped(value.name, QLatin1StringView("="), QLatin1StringView(";#["))
                        + QLatin1Char('=') + escaped(value.setData, {}))
                           .toUtf8();
            out += '\n';
        }
    }
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
    return data(found.values.at(*v));
}

QList<std::pair<QString, QString>> RegistryIni::values(const QString &key) const
{
    QList<std::pair<QString, QString>> all;
    const auto k = byPath.constFind(key.toCaseFolded());
    if (k != byPath.cend()) {
        for (const Value &value : keys.at(*k).values)
            all.append({value.name, data(value)});
    }
    return all;
}

QByteArrayView RegistryIni::bytes(Span span) const
{
    return QByteArrayView(source).sliced(span.at, span.size);
}

QString RegistryIni::decoded(Span span) const { return unescaped(QString::fromUtf8(bytes(span))); }

QString RegistryIni::data(const Value &value) const
{
    return value.data.at >= 0 ? decoded(value.data) : value.setData;
}

qsizetype RegistryIni::keyIndex(const QString &path)
{
    const QString folded = path.toCaseFolded();
    if (const auto found = byPath.constFind(folded); found != byPath.cend())
        return *found;
    byPath.insert(folded, keys.size());
    keys.append(Key{path, {}, {}, {}});
    return keys.size() - 1;
}

qsizetype RegistryIni::valueIndex(Key &key, const QString &name)
{
    const QString folded = name.toCaseFolded();
    if (const auto found = key.byName.constFind(folded); found != key.byName.cend())
        return *found;
    key.byName.insert(folded, key.values.size());
    key.values.append(Value{name, {}, {}, {}});
    return key.values.size() - 1;
}

void RegistryIni::setValue(const QString &key, const QString &name, const QString &data)
{
    Key &found = keys[keyIndex(key)];
    Value &value = found.values[valueIndex(found, name)];
    value.setData = data;
    value.line = value.data = Span();
}

} // namespace bravcpl5
