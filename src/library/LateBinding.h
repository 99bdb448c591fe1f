#pragma once

// Calls on objects that the library does not know at compile time (the host's service
// object, report objects, report controls) go through these few functions, by member
// name. A member resolves to a Q_PROPERTY or, failing that, to a public slot or
// Q_INVOKABLE method taking exactly as many arguments as are given. Arguments are
// converted to the parameter types. A missing member, an argument that does not convert,
// an exception thrown by the callee, or a QVariant-returning method that returns an
// invalid QVariant (how a Qt object reports that a call failed) make the call fail: the
// result is then empty and nothing is thrown.

#include <QObject>
#include <QString>
#include <QVariant>
#include <QVariantList>

namespace bravcpl5::late {

// Reads a property, or calls a method. Returns false when the call failed; `result`
// receives the value (an invalid QVariant for void methods and failures).
bool call(QObject *object, const char *member, const QVariantList &args = {},
          QVariant *result = nullptr);

// The value of a property or of a method call; an invalid QVariant when it failed.
QVariant value(QObject *object, const char *member, const QVariantList &args = {});

// The value as text by the platform's rules (True/False, shortest singles); empty on failure.
QString text(QObject *object, const char *member, const QVariantList &args = {});

// An object-valued property or method result; null when it failed or is not an object.
QObject *object(QObject *object, const char *member, const QVariantList &args = {});

// Writes a property (or calls a one-argument method of that name, as a property put
// on an automation object may be). Returns false when it failed.
bool set(QObject *object, const char *member, const QVariant &value);

// The object held by a QVariant, when it holds a pointer to a QObject.
QObject *toObject(const QVariant &value);

} // namespace bravcpl5::late
