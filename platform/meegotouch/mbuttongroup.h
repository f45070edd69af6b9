// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>

class MButton;

/// Buttons that belong together: tells which one was clicked and keeps at most one of its checkable buttons checked.
/// Owns none of them; a button that is deleted leaves its group.
class MButtonGroup : public QObject {
    Q_OBJECT

public:
    explicit MButtonGroup(QObject *parent = nullptr);
    ~MButtonGroup() override;

    /// Adds the button after those already there, taking it out of its former group. A null button is ignored.
    /// @param id -1 gives it the next free id below all others, from -2 on
    void addButton(MButton *button, int id = -1);
    /// Ignores a button that is not in the group.
    void removeButton(MButton *button);
    /// In the order in which they were added.
    QList<MButton *> buttons() const;

    /// Null for an unknown id; the first added if several share it.
    MButton *button(int id) const;
signals:
    /// A button was clicked; both signals come, in this order. A receiver of the first may delete the button.
    void buttonClicked(MButton *button);
    void buttonClicked(int id);

private:
    friend class MButton;

    struct Member {
        MButton *button;
        int id;
    };

    int nextId() const;
    QList<Member>::iterator find(const MButton *button);
    void tellClicked(MButton *button);
    void uncheckOthers(MButton *checked);

    QList<Member> m_members;
};
