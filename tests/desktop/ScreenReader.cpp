#include "desktop/ScreenReader.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QDeadlineTimer>
#include <QVector>

#include <gtest/gtest.h>

#include <chrono>
#include <vector>

namespace {

using Object = ScreenReader::Object;
using Filter = std::function<bool(const Object &)>;

constexpr std::chrono::seconds patience(30);
constexpr unsigned enabledState = 8; // of the accessibility protocol's list of states
constexpr unsigned showingState = 25;

/// One object of the program on the accessibility bus.
class Node {
public:
    Node(const QDBusConnection &connection, QString service, QString objectPath) :
        bus(connection), owner(std::move(service)), path(std::move(objectPath))
    {
    }

    /// The first argument of the answer; invalid when there is none, as from an object that has just gone.
    QVariant call(const QString &interface, const QString &method, const QVariantList &arguments = {}) const
    {
        QDBusMessage message = QDBusMessage::createMethodCall(owner, path, interface, method);
        message.setArguments(arguments);
        return bus.call(message).arguments().value(0);
    }

    bool exists() const { return property("Name").isValid(); }

    Object read() const
    {
        const auto state = qdbus_cast<QVector<quint32>>(call(accessible(), QStringLiteral("GetState"))).value(0);
        return {.name = property("Name").toString(),
                .role = call(accessible(), QStringLiteral("GetRoleName")).toString(),
                .isEnabled = (state >> enabledState & 1U) != 0,
                .rectangle = (state >> showingState & 1U) != 0 ? rectangle() : QRect()};
    }

    std::vector<Node> children() const
    {
        std::vector<Node> nodes;
        const auto list = call(accessible(), QStringLiteral("GetChildren")).value<QDBusArgument>();
        list.beginArray();
        while (!list.atEnd()) {
            QString service;
            QDBusObjectPath child;
            list.beginStructure();
            list >> service >> child;
            list.endStructure();
            nodes.emplace_back(bus, service, child.path());
        }
        return nodes;
    }

private:
    static QString accessible() { return QStringLiteral("org.a11y.atspi.Accessible"); }

    QVariant property(const char *name) const
    {
        return call(QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"),
                    {accessible(), QString::fromLatin1(name)})
            .value<QDBusVariant>()
            .variant();
    }

    QRect rectangle() const
    {
        const QVariant extents = call(QStringLiteral("org.a11y.atspi.Component"), QStringLiteral("GetExtents"), {0U});
        if (!extents.isValid()) {
            return {};
        }
        int x = 0;
        int y = 0;
        int width = 0;
        int height = 0;
        const auto structure = extents.value<QDBusArgument>();
        structure.beginStructure();
        structure >> x >> y >> width >> height;
        structure.endStructure();
        return {x, y, width, height};
    }

    QDBusConnection bus;
    QString owner;
    QString path;
};

/// The program's application object; it has connections to the bus that lead nowhere, too.
std::optional<Node> rootOf(const QDBusConnection &bus, qint64 program)
{
    const QStringList names = bus.interface()->registeredServiceNames();
    for (const QString &name : names) {
        if (name.startsWith(u':') && bus.interface()->servicePid(name).value() == program) {
            Node root(bus, name, QStringLiteral("/org/a11y/atspi/accessible/root"));
            if (root.exists()) {
                return root;
            }
        }
    }
    return {};
}

std::optional<Object> findBelow(const Node &node, const Filter &isWanted)
{
    for (const Node &child : node.children()) {
        const Object object = child.read();
        if (!object.rectangle.isEmpty() && isWanted(object)) {
            return object;
        }
        if (std::optional<Object> found = findBelow(child, isWanted)) {
            return found;
        }
    }
    return {};
}

} // namespace

ScreenReader::ScreenReader(QDBusConnection accessibilityBus, qint64 programId) :
    bus(std::move(accessibilityBus)), program(programId)
{
}

std::optional<Object> ScreenReader::find(const Filter &isWanted) const
{
    const std::optional<Node> root = rootOf(bus, program);
    return root ? findBelow(*root, isWanted) : std::nullopt;
}

Object ScreenReader::await(const Filter &isWanted) const
{
    // No event tells of all changes; the program's answers set the pace.
    for (const QDeadlineTimer deadline(patience); !deadline.hasExpired();) {
        if (const std::optional<Object> found = find(isWanted)) {
            return *found;
        }
    }
    QString list;
    find([&list](const Object &object) {
        list += object.role + u": " + object.name + u'\n';
        return false;
    });
    ADD_FAILURE() << "not there; there are\n" << list.toStdString();
    return {};
}

Object ScreenReader::await(const QString &role, const QString &name) const
{
    SCOPED_TRACE(QString(role + u": " + name).toStdString());
    return await([&](const Object &object) { return object.role == role && object.name == name; });
}

void ScreenReader::awaitNone(const QString &role) const
{
    const auto isThere = [&role](const Object &object) { return object.role == role; };
    const QDeadlineTimer deadline(patience);
    while (find(isThere) && !deadline.hasExpired()) {
    }
    EXPECT_FALSE(deadline.hasExpired()) << role.toStdString() << " stays";
}
