// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>

/// What the scripts of a web page are given in place of an object: the slots that one of its classes declares, and
/// nothing else. A script that is given the object itself also reaches its properties, its children, the signals and
/// slots of every base class and, by connecting to a signal, its last moments.
class ScriptFacade : public QObject {
    // Deliberately without Q_OBJECT: its meta-object is made from the other class's.
public:
    /// Passes calls on to @p target (not owned; calls after its end do nothing) for the slots that @p declaredBy, the
    /// meta-object of its class or of one of its bases, declares itself.
    ScriptFacade(QObject *target, const QMetaObject &declaredBy);

    const QMetaObject *metaObject() const override;
    int qt_metacall(QMetaObject::Call call, int id, void **arguments) override;

    /// Whether a script's call is being carried out.
    bool isCalling() const { return callDepth > 0; }

private:
    QPointer<QObject> target;
    int firstSlot; ///< index in the target's meta-object of the first slot shown
    QMetaObject slotsOnly;
    int callDepth = 0;
};
