#include "library/LateBinding.h"

#include <QObject>
#include <gtest/gtest.h>
#include <stdexcept>

using namespace bravcpl5;

namespace {

// A callee written as a host author would write one.
class Callee : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString Name READ name WRITE setName)
    Q_PROPERTY(QObject *Child READ child)
    Q_PROPERTY(int Size READ size WRITE setSize)
    Q_PROPERTY(bool Flag READ flag)

public:
    QString name() const { return m_name; }
    void setName(const QString &n) { m_name = n; }
    QObject *child() const { return m_child; }
    int size() const { return m_size; }
    void setSize(int s) { m_size = s; }
    bool flag() const { return true; }

    Q_INVOKABLE QString Join(const QString &a, const QString &b) const { return a + b; }
    Q_INVOKABLE int Twice(int v) const { return 2 * v; }
    Q_INVOKABLE QVariant Fails() const { return QVariant(); }
    Q_INVOKABLE QVariant Empty() const { return QString(); }
    Q_INVOKABLE QString Throws() const { throw std::runtime_error("no"); }
    Q_INVOKABLE void Touch() { ++touched; }
    Q_INVOKABLE QString TakesObject(QObject *o) const
    {
        return o ? o->objectName() : QStringLiteral("null");
    }
    Q_INVOKABLE void Color(int c) { color = c; }

    QObject *m_child = nullptr;
    QString m_name = QStringLiteral("n");
    int m_size = 1;
    int touched = 0;
    int color = 0;
};

TEST(LateBinding, ResolvesPropertiesThenMethodsAndPassesObjects)
{
    Callee callee, child;
    child.setObjectName(QStringLiteral("kid"));
    callee.m_child = &child;
    EXPECT_EQ(late::text(&callee, "Name"), QStringLiteral("n"));
    EXPECT_EQ(late::text(&callee, "Flag"), QStringLiteral("True"));
    EXPECT_EQ(late::text(&callee, "Join", {QStringLiteral("a"), QStringLiteral("b")}),
              QStringLiteral("ab"));
    EXPECT_EQ(late::value(&callee, "Twice", {QStringLiteral("21")}).toInt(), 42);
    EXPECT_TRUE(late::call(&callee, "Touch"));
    EXPECT_EQ(callee.touched, 1);
    EXPECT_EQ(late::object(&callee, "Child"), &child);
    EXPECT_EQ(late::text(&callee, "TakesObject", {QVariant::fromValue<QObject *>(&child)}),
              QStringLiteral("kid"));
    EXPECT_EQ(late::text(&callee, "TakesObject", {QVariant::fromValue<Callee *>(&child)}),
              QStringLiteral("kid"));
    // An empty answer is not a failure.
    QVariant result;
    EXPECT_TRUE(late::call(&callee, "Empty", {}, &result));
    EXPECT_TRUE(result.isValid());
}

TEST(LateBinding, FailuresGiveEmptyResults)
{
    Callee callee;
    QVariant result = QStringLiteral("stale");
    struct Case {
        const char *member;
        QVariantList args;
    };
    const Case cases[] = {
        {"Missing", {}},                           // no such member
        {"Join", {QStringLiteral("only one")}},    // wrong argument count
        {"Twice", {QStringLiteral("abc")}},        // argument does not convert
        {"Fails", {}},                             // host reports a failed call
        {"Throws", {}},                            // callee throws
        {"TakesObject", {QStringLiteral("text")}}, // not an object
    };
    for (const Case &c : cases) {
        EXPECT_FALSE(late::call(&callee, c.member, c.args, &result)) << c.member;
        EXPECT_FALSE(result.isValid()) << c.member;
        EXPECT_EQ(late::text(&callee, c.member, c.args), QString()) << c.member;
    }
    EXPECT_FALSE(late::call(nullptr, "Name"));
    EXPECT_EQ(late::object(&callee, "Child"), nullptr); // a null object
}

TEST(LateBinding, SetsPropertiesOrOneArgumentMethods)
{
    Callee callee;
    EXPECT_TRUE(late::set(&callee, "Name", QStringLiteral("x")));
    EXPECT_EQ(callee.name(), QStringLiteral("x"));
    EXPECT_TRUE(late::set(&callee, "Size", 12.0)); // converts
    EXPECT_EQ(callee.size(), 12);
    EXPECT_FALSE(late::set(&callee, "Size", QStringLiteral("big")));
    EXPECT_EQ(callee.size(), 12);
    EXPECT_FALSE(late::set(&callee, "Flag", false)); // read-only
    EXPECT_TRUE(late::set(&callee, "Color", 255));
    EXPECT_EQ(callee.color, 255);
    EXPECT_FALSE(late::set(&callee, "Nothing", 1));
}

} // namespace

#include "LateBindingTest.moc"
