#include "library/LateBinding.h"

#include "library/ValueRules.h"

#include <QMetaMethod>
#include <QMetaProperty>
#include <array>

namespace bravcpl5::late {

namespace {

constexpr int maxArguments = 10; // what QMetaMethod::invoke takes

// Converts an argument to a parameter's type; pointers to QObjects convert only to a
// class the object really is.
bool convertArgument(const QVariant &in, QMetaType target, QVariant &out)
{
    if (target.id() == QMetaType::QVariant) {
        out = in;
        return true;
    }
    if (target.flags().testFlag(QMetaType::PointerToQObject)) {
        QObject *obj = toObject(in);
        if (in.isValid() && !in.isNull() && !obj)
            return false;
        if (obj && target.metaObject() && !obj->metaObject()->inherits(target.metaObject()))
            return false;
        out = QVariant(target, &obj);
        return true;
    }
    out = in;
    if (out.metaType() == target)
        return true;
    return out.convert(target);
}

int findMethod(const QMetaObject *meta, const char *member, int argc)
{
    for (int i = meta->methodCount() - 1; i >= 0; --i) {
        const QMetaMethod m = meta->method(i);
        if (m.access() != QMetaMethod::Public || m.parameterCount() != argc)
            continue;
        if (m.methodType() != QMetaMethod::Method && m.methodType() != QMetaMethod::Slot)
            continue;
        if (m.name() == member)
            return i;
    }
    return -1;
}

bool invokeMethod(QObject *object, const QMetaMethod &method, const QVariantList &args,
                  QVariant *result)
{
    std::array<QVariant, maxArguments> converted;
    std::array<QGenericArgument, maxArguments> generic{};
    for (int i = 0; i < args.size(); ++i) {
        const QMetaType type = method.parameterMetaType(i);
        // Arguments of the right type go in as they are: hosts are called per database row.
        const void *data = nullptr;
        if (type.id() == QMetaType::QVariant) {
            data = &args[i];
        } else if (args[i].metaType() == type) {
            data = args[i].constData();
        } else {
            if (!convertArgument(args[i], type, converted[i]))
                return false;
            data = converted[i].constData();
        }
        generic[i] = QGenericArgument(type.name(), data);
    }

    const QMetaType returnType = method.returnMetaType();
    QVariant returned;
    QVariant variantStorage; // for methods declared to return QVariant
    QGenericReturnArgument ret;
    if (returnType.id() == QMetaType::QVariant) {
        ret = QGenericReturnArgument("QVariant", &variantStorage);
    } else if (returnType.isValid() && returnType.id() != QMetaType::Void) {
        returned = QVariant(returnType);
        ret = QGenericReturnArgument(returnType.name(), returned.data());
    }

    bool ok = false;
    try {
        ok = method.invoke(object, Qt::DirectConnection, ret, generic[0], generic[1], generic[2],
                           generic[3], generic[4], generic[5], generic[6], generic[7], generic[8],
                           generic[9]);
    } catch (...) {
        ok = false;
    }
    if (!ok)
        return false;
    if (returnType.id() == QMetaType::QVariant) {
        if (!variantStorage.isValid())
            return false;
        returned = variantStorage;
    }
    if (result)
        *result = returned;
    return true;
}

} // namespace

QObject *toObject(const QVariant &value)
{
    if (!value.isValid() || !value.metaType().flags().testFlag(QMetaType::PointerToQObject))
        return nullptr;
    return *static_cast<QObject *const *>(value.constData());
}

bool call(QObject *object, const char *member, const QVariantList &args, QVariant *result)
{
    if (result)
        *result = QVariant();
    if (!object || !member || args.size() > maxArguments)
        return false;
    const QMetaObject *meta = object->metaObject();
    if (args.isEmpty()) {
        const int p = meta->indexOfProperty(member);
        if (p >= 0) {
            const QMetaProperty property = meta->property(p);
            QVariant v;
            try {
                v = property.read(object);
            } catch (...) {
                return false;
            }
            if (!v.isValid())
                return false;
            if (result)
                *result = v;
            return true;
        }
    }
    const int m = findMethod(meta, member, int(args.size()));
    if (m < 0)
        return false;
    return invokeMethod(object, meta->method(m), args, result);
}

QVariant value(QObject *object, const char *member, const QVariantList &args)
{
    QVariant result;
    call(object, member, args, &result);
    return result;
}

QString text(QObject *object, const char *member, const QVariantList &args)
{
    return values::variantToText(value(object, member, args));
}

QObject *object(QObject *object, const char *member, const QVariantList &args)
{
    return toObject(value(object, member, args));
}

bool set(QObject *object, const char *member, const QVariant &value)
{
    if (!object || !member)
        return false;
    const QMetaObject *meta = object->metaObject();
    const int p = meta->indexOfProperty(member);
    if (p >= 0) {
        const QMetaProperty property = meta->property(p);
        if (!property.isWritable())
            return false;
        QVariant converted;
        if (!convertArgument(value, property.metaType(), converted))
            return false;
        try {
            return property.write(object, converted);
        } catch (...) {
            return false;
        }
    }
    const int m = findMethod(meta, member, 1);
    return m >= 0 && invokeMethod(object, meta->method(m), {value}, nullptr);
}

} // namespace bravcpl5::late
