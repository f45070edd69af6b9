// SPDX-License-Identifier: MIT
#include "mbuttongroup.h"

#include "mbutton.h"

#include <QPointer>

#include <algorithm>
#include <utility>

MButtonGroup::MButtonGroup(QObject *parent)
    : QObject(parent)
{
}

MButtonGroup::~MButtonGroup()
{
    for (const Member &member : std::as_const(m_members))
        member.button->m_group = nullptr;
}

QList<MButtonGroup::Member>::iterator MButtonGroup::find(const MButton *button)
{
    return std::find_if(m_members.begin(), m_members.end(),
                        [button](const Member &member) { return member.button == button; });
}

int MButtonGroup::nextId() const
{
    int lowest = -1;
    for (const Member &member : m_members)
        lowest = qMin(lowest, member.id);
    return lowest - 1;
}

void MButtonGroup::addButton(MButton *button, int id)
{
    if (!button)
        return;
    if (button->m_group)
        button->m_group->removeButton(button);
    m_members.append({button, id == -1 ? nextId() : id});
    button->m_group = this;
    connect(button, &MButton::clicked, this, [this, button] { tellClicked(button); });
    if (button->isChecked())
        uncheckOthers(button);
}

void MButtonGroup::removeButton(MButton *button)
{
    const auto member = find(button);
    if (member == m_members.end())
        return;
    m_members.erase(member);
    button->m_group = nullptr;
    disconnect(button, nullptr, this, nullptr);
}

QList<MButton *> MButtonGroup::buttons() const
{
    QList<MButton *> all;
    for (const Member &member : m_members)
        all.append(member.button);
    return all;
}

MButton *MButtonGroup::button(int id) const
{
    for (const Member &member : m_members) {
        if (member.id == id)
            return member.button;
    }
    return nullptr;
}

void MButtonGroup::tellClicked(MButton *button)
{
    const int id = find(button)->id;
    const QPointer<MButtonGroup> self(this);
    emit buttonClicked(button);
    if (self)
        emit buttonClicked(id);
}

void MButtonGroup::uncheckOthers(MButton *checked)
{
    // The receivers of toggled() may delete any of the buttons, or the group.
    QList<QPointer<MButton>> others;
    for (const Member &member : std::as_const(m_members)) {
        if (member.button != checked)
            others.append(member.button);
    }
    const QPointer<MButtonGroup> self(this);
    for (const QPointer<MButton> &other : std::as_const(others)) {
        if (self && other && other->m_group == this)
            other->setChecked(false);
    }
}
