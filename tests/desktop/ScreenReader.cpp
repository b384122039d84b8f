#include "desktop/ScreenReader.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QDeadlineTimer>

#include <gtest/gtest.h>

#include <chrono>

using namespace Qt::StringLiterals;

namespace {

using Object = ScreenReader::Object;

constexpr std::chrono::seconds patience(30);
constexpr unsigned showingState = 25; // of the accessibility protocol's list of states

/// One object of a program on the accessibility bus.
struct Node {
    QString owner;
    QString path = u"/org/a11y/atspi/accessible/root"_s;
};

/// The first argument of the answer; invalid when there is none, as from an object that has just gone.
QVariant call(const QDBusConnection &bus, const Node &node, const char *method, const QVariantList &arguments = {})
{
    const QString name = QString::fromLatin1(method); // the interface, a dot, the method
    QDBusMessage message =
        QDBusMessage::createMethodCall(node.owner, node.path, name.section(u'.', 0, -2), name.section(u'.', -1));
    message.setArguments(arguments);
    return bus.call(message).arguments().value(0);
}

QVariant nameOf(const QDBusConnection &bus, const Node &node)
{
    const QVariantList property{u"org.a11y.atspi.Accessible"_s, u"Name"_s};
    return call(bus, node, "org.freedesktop.DBus.Properties.Get", property).value<QDBusVariant>().variant();
}

QRect rectangleOf(const QDBusConnection &bus, const Node &node)
{
    const QVariant extents = call(bus, node, "org.a11y.atspi.Component.GetExtents", {0U});
    return extents.isValid() ? qdbus_cast<QRect>(extents) : QRect();
}

Object read(const QDBusConnection &bus, const Node &node)
{
    const auto state = qdbus_cast<QList<quint32>>(call(bus, node, "org.a11y.atspi.Accessible.GetState")).value(0);
    return {.name = nameOf(bus, node).toString(),
            .role = call(bus, node, "org.a11y.atspi.Accessible.GetRoleName").toString(),
            .rectangle = (state >> showingState & 1U) != 0 ? rectangleOf(bus, node) : QRect()};
}

std::optional<Object> findBelow(const QDBusConnection &bus, const Node &node, const ScreenReader::Filter &isWanted)
{
    std::optional<Object> found;
    const auto children = call(bus, node, "org.a11y.atspi.Accessible.GetChildren").value<QDBusArgument>();
    children.beginArray();
    while (!children.atEnd() && !found) {
        Node child;
        QDBusObjectPath path;
        children.beginStructure();
        children >> child.owner >> path;
        children.endStructure();
        child.path = path.path();
        const Object object = read(bus, child);
        found = !object.rectangle.isEmpty() && isWanted(object) ? object : findBelow(bus, child, isWanted);
    }
    return found;
}

} // namespace

ScreenReader::ScreenReader(QDBusConnection bus, qint64 program) : bus_(std::move(bus)), program_(program) {}

std::optional<Object> ScreenReader::find(const Filter &isWanted) const
{
    const QStringList names = bus_.interface()->registeredServiceNames();
    for (const QString &name : names) { // the program has connections that lead nowhere, too
        const Node root{.owner = name};
        if (name.startsWith(u':') && bus_.interface()->servicePid(name).value() == program_ &&
            nameOf(bus_, root).isValid()) {
            return findBelow(bus_, root, isWanted);
        }
    }
    return {};
}

Object ScreenReader::await(const Filter &isWanted) const
{
    // Asks again and again, since no event announces every change.
    for (const QDeadlineTimer deadline(patience); !deadline.hasExpired();) {
        if (const std::optional<Object> found = find(isWanted)) {
            return *found;
        }
    }
    ADD_FAILURE() << "it does not come";
    return {};
}

Object ScreenReader::await(const QString &role, const QString &name) const
{
    SCOPED_TRACE(QString(role + u": " + name).toStdString());
    return await([&](const Object &object) { return object.role == role && object.name == name; });
}

bool ScreenReader::has(const QString &role) const
{
    return find([&role](const Object &object) { return object.role == role; }).has_value();
}

void ScreenReader::awaitNone(const QString &role) const
{
    const QDeadlineTimer deadline(patience);
    while (has(role)) {
        ASSERT_FALSE(deadline.hasExpired()) << role.toStdString() << " stays";
    }
}
