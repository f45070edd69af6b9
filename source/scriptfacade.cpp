// SPDX-License-Identifier: MIT
#include "scriptfacade.h"

ScriptFacade::ScriptFacade(QObject *target, const QMetaObject &declaredBy)
    : target(target)
    , firstSlot(declaredBy.methodOffset())
    , slotsOnly(declaredBy)
{
    slotsOnly.d.superdata = nullptr;
    // Calls must come through qt_metacall(): the shortcut would take this object for one of the other class.
    slotsOnly.d.static_metacall = nullptr;
}

const QMetaObject *ScriptFacade::metaObject() const
{
    return &slotsOnly;
}

int ScriptFacade::qt_metacall(QMetaObject::Call call, int id, void **arguments)
{
    if (call != QMetaObject::InvokeMetaMethod || !target)
        return -1;
    const QPointer<ScriptFacade> self(this);
    ++callDepth;
    target->qt_metacall(call, firstSlot + id, arguments);
    if (self)
        --callDepth;
    return -1;
}
