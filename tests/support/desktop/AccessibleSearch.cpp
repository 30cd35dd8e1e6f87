#include "support/desktop/Accessible.h"

#include <QDebug>
#include <QTest>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace desktop {
namespace {

constexpr int itemLimit = 200;

} // namespace

bool Accessible::matches(const QString &name) const
{
    return this->name() == name || description() == name || label() == name;
}

bool Accessible::isItemView() const
{
    const Role mine = role();
    return mine == Role::List || mine == Role::Table || mine == Role::Tree;
}

/// `wanted` below 0 means all. Controls that are not showing are passed over with all below them.
void Accessible::collect(Role role, const QString *name, int wanted, QList<Accessible> &found) const
{
    const int all = childCount();
    const int count = all > itemLimit && isItemView() ? itemLimit : all;
    for (int index = 0; index < count; ++index) {
        const Accessible next = child(index);
        if (!next.isShowing())
            continue;
        if (next.role() == role && (!name || next.matches(*name)))
            found.append(next);
        if (wanted >= 0 && found.size() >= wanted)
            return;
        next.collect(role, name, wanted, found);
        if (wanted >= 0 && found.size() >= wanted)
            return;
    }
}

QList<Accessible> Accessible::findAll(Role role) const
{
    QList<Accessible> found;
    collect(role, nullptr, -1, found);
    return found;
}

QList<Accessible> Accessible::findAll(Role role, const QString &name) const
{
    QList<Accessible> found;
    collect(role, &name, -1, found);
    return found;
}

Accessible Accessible::find(Role role, const QString &name) const
{
    QList<Accessible> found;
    collect(role, &name, 1, found);
    return found.value(0);
}

Accessible Accessible::find(Role role, int index) const
{
    QList<Accessible> found;
    collect(role, nullptr, index + 1, found);
    return found.value(index);
}

Accessible Accessible::waitFor(Role role, const QString &name, int timeoutMs) const
{
    Accessible found;
    if (!QTest::qWaitFor([&] { return bool(found = find(role, name)); }, timeoutMs))
        qWarning().noquote() << "There is no"_L1 << roleName(role) << name << "in\n"_L1
                             << describe();
    return found;
}

Accessible Accessible::waitFor(Role role, int index, int timeoutMs) const
{
    Accessible found;
    if (!QTest::qWaitFor([&] { return bool(found = find(role, index)); }, timeoutMs))
        qWarning().noquote() << "There is no"_L1 << roleName(role) << index << "in\n"_L1
                             << describe();
    return found;
}

bool Accessible::waitUntilGone(int timeoutMs) const
{
    return QTest::qWaitFor([this] { return !isShowing(); }, timeoutMs);
}

QString Accessible::describe() const
{
    QString out;
    describe(0, out);
    return out;
}

void Accessible::describe(int depth, QString &out) const
{
    constexpr int shownItems = 10;
    const QRect area = rect();
    const QString indent(qsizetype(depth) * 2, u' ');
    out += indent + roleName(role()) + u" \"%1\""_s.arg(name());
    if (const QString more = description(); !more.isEmpty())
        out += u" (%1)"_s.arg(more);
    if (role() == Role::Edit)
        out += u" text \"%1\""_s.arg(text());
    out += u" %1,%2 %3x%4"_s.arg(area.x()).arg(area.y()).arg(area.width()).arg(area.height());
    for (const auto &[holds, word] :
         {std::pair{isFocused(), u" focused"_s}, std::pair{isChecked(), u" checked"_s},
          std::pair{!isEnabled(), u" disabled"_s}}) {
        if (holds)
            out += word;
    }
    out += u'\n';
    const int all = childCount();
    const int count = isItemView() ? std::min(all, shownItems) : all;
    for (int index = 0; index < count; ++index) {
        if (const Accessible next = child(index); next.isShowing())
            next.describe(depth + 1, out);
    }
    if (count < all)
        out += indent + u"  ... of %1\n"_s.arg(all);
}

} // namespace desktop
