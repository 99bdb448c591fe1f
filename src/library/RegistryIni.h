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

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>
#include <optional>

namespace bravcpl5 {

class RegistryIni
{
public:
    // Reads what it can: lines it does not understand are skipped, never an error.
    static RegistryIni parse(const QByteArray &text);
    QByteArray text() const;

    // `key` is the registry's path text, parts separated by "\".
    std::optional<QString> value(const QString &key, const QString &name) const;
    void setValue(const QString &key, const QString &name, const QString &data);
    // Every value of the key as (name, data), in the file's order.
    QList<std::pair<QString, QString>> values(const QString &key) const;

    // The file still holds entries of the older flat form (one "[General]" line per value,
    // the whole path in its name), which this parser skips; the caller migrates them.
    bool hasFlatEntries() const { return flatEntries; }

private:
    struct Value {
        QString name;
        QString data;
    };
    struct Key {
        QString path;
        QList<Value> values;
        QHash<QString, qsizetype> byName; // case-folded name -> index in values
    };

    // The key's index in `keys`, added when new.
    qsizetype keyIndex(const QString &path);
    static void setValue(Key &key, const QString &name, const QString &data);

    QList<Key> keys;
    QHash<QString, qsizetype> byPath; // case-folded path -> index in keys
    bool flatEntries = false;
};

} // namespace bravcpl5
