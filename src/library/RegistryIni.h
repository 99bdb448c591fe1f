#pragma once

// The text form of the registry off Windows: an INI file a person can read and edit.
// Every key is a group whose name is the key's path with "/" between its parts, and every
// value a "name=data" line in it:
//
//     [Software/Tarnwell/Lumarest/5.0/Settings (Acme)/Printer Configurations]
//     Letter=Office-Laser
//
// Names map one to one to the text: what the format would fold or misread ("%", "/" in a
// key's part, "=" in a value name, line breaks, spaces at either end, a leading ";", "#"
// or "[") is written as "%" and two hex digits. Key and value names are compared without
// regard to case, as the registry's are; a name keeps the case it was first written with.
//
// A value is written back as the very bytes it was read as until it is set anew, so that
// text in another encoding (not UTF-8) survives a write of some other value, and writing
// a large file costs little more than copying it.

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>
#include <optional>

namespace bravcpl5 {

class RegistryIni
{
public:
    // Reads what it can: lines it does not understand are skipped, never an error. Values
    // are decoded when asked for, so parsing a large file costs little more than finding
    // its lines.
    static RegistryIni parse(const QByteArray &text);
    // Replaces `out` with the file's text. The room `out` already has is used again: the
    // fresh memory for a large file's text each time costs more than the copying.
    void text(QByteArray &out) const;

    // `key` is the registry's path text, parts separated by "\".
    std::optional<QString> value(const QString &key, const QString &name) const;
    void setValue(const QString &key, const QString &name, const QString &data);
    // Every value of the key as (name, data), in the file's order.
    QList<std::pair<QString, QString>> values(const QString &key) const;

    // The file still holds entries of the older flat form (one "[General]" line per value,
    // the whole path in its name), which this parser skips; the caller migrates them.
    bool hasFlatEntries() const { return flatEntries; }

private:
    // Bytes of `source`; an empty span (`at` -1) is none.
    struct Span {
        qsizetype at = -1;
        qsizetype size = 0;
    };
    struct Value {
        QString name;
        Span line;       // as read, written back while the value is unchanged
        Span data;       // the data's text in `line`, decoded when asked for
        QString setData; // what the value was set to since, when `line` is none
    };
    struct Key {
        QString path;
        Span header; // the group line as read
        QList<Value> values;
        QHash<QString, qsizetype> byName; // case-folded name -> index in values
    };

    // The key's index in `keys`, added when new.
    qsizetype keyIndex(const QString &path);
    // The value's index in `key`, added (without data) when new.
    static qsizetype valueIndex(Key &key, const QString &name);
    QByteArrayView bytes(Span span) const;
    QString decoded(Span span) const;
    QString data(const Value &value) const;

    QByteArray source; // the text parsed
    QList<Key> keys;
    QHash<QString, qsizetype> byPath; // case-folded path -> index in keys
    bool flatEntries = false;
};

} // namespace bravcpl5
