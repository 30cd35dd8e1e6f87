#include "support/desktop/Accessible.h"
#include "support/desktop/Appearance.h"

#include <QDebug>
#include <QTest>

using namespace Qt::StringLiterals;

namespace desktop {

bool Accessible::matches(const QStringList &names) const
{
    return names.contains(name()) || names.contains(description()) || names.contains(label());
}

/// Of a list, table or tree only the first items count.
int Accessible::searchedChildren() const
{
    constexpr int itemLimit = 200;
    const int all = childCount();
    if (all <= itemLimit)
        return all;
    const Role mine = role();
    return mine == Role::List || mine == Role::Table || mine == Role::Tree ? itemLimit : all;
}

/// With any name if there are no `names`. `wanted` below 0 means all. Controls that are not showing
/// are passed over with all below them.
void Accessible::collect(Role role, const QStringList &names, int wanted,
                         QList<Accessible> &found) const
{
    const int count = searchedChildren();
    for (int index = 0; index < count; ++index) {
        const Accessible next = child(index);
        if (!next.isShowing())
            continue;
        if (next.role() == role && (names.isEmpty() || next.matches(names)))
            found.append(next);
        if (found.size() == wanted)
            return;
        next.collect(role, names, wanted, found);
        if (found.size() == wanted)
            return;
    }
}

QList<Accessible> Accessible::findAll(Role role) const
{
    QList<Accessible> found;
    collect(role, {}, -1, found);
    return found;
}

Accessible Accessible::find(Role role, const QString &name) const
{
    QList<Accessible> found;
    collect(role, Appearance::textsFor(name), 1, found);
    return found.value(0);
}

Accessible Accessible::find(Role role, int index) const
{
    QList<Accessible> found;
    collect(role, {}, index + 1, found);
    return found.value(index);
}

Accessible Accessible::waitFor(Role role, const QString &name, int timeoutMs) const
{
    Accessible found;
    if (!QTest::qWaitFor([&] { return bool(found = find(role, name)); }, timeoutMs))
        qWarning().noquote() << "There is no"_L1 << name << "in\n"_L1 << describe();
    return found;
}

Accessible Accessible::waitFor(Role role) const
{
    Accessible found;
    if (!QTest::qWaitFor([&] { return bool(found = find(role)); }, defaultTimeoutMs))
        qWarning().noquote() << "There is no such control in\n"_L1 << describe();
    return found;
}

bool Accessible::waitUntilGone() const
{
    return QTest::qWaitFor([this] { return !isShowing(); }, defaultTimeoutMs);
}

QString Accessible::describe(int depth) const
{
    const QString indent(qsizetype(depth) * 2, u' ');
    QString out = indent + u"%1 \"%2\" %3\n"_s.arg(roleName(), name(), text());
    const int count = searchedChildren();
    for (int index = 0; index < count; ++index) {
        if (const Accessible next = child(index); next.isShowing())
            out += next.describe(depth + 1);
    }
    return out;
}

} // namespace desktop
