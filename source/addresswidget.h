// SPDX-License-Identifier: MIT
#pragma once

#include "mbutton.h"
#include "mdialog.h"
#include "mpannableviewport.h"

#include <QStringList>

class MButtonGroup;
class MFlowLayoutPolicy;
class MLabel;
class MTextEdit;
class SelectButton;

/// The "To:" strip of the composers: a caption, a button that adds a recipient, and a button for each recipient, which
/// removes it. The buttons flow onto as many lines as they need; the strip is panned to see them all.
class AddressWidget : public MPannableViewport {
    Q_OBJECT

public:
    /// How recipients are given: typed as e-mail addresses, or picked as users, each a name with an id.
    enum Address_Type { EMAIL = 0, MESSAGE = 1 };

    AddressWidget();
    ~AddressWidget() override;

    using MPannableViewport::show;
    /// Shows the strip, without any recipient, for recipients of @p type.
    void show(Address_Type type);

signals:
    /// A user is to be picked: the add button was clicked while recipients are users.
    void btnAddressClicked();

public slots:
    /// Asks for an address in a dialog, or emits btnAddressClicked(), by the type of recipients.
    void on_btnNewAddressClicked();
    /// Same as addNewAddress().
    void on_dlgInputNameClosed(QString text);
    /// Removes the recipient of @p button; null and strange buttons are ignored.
    void addressButtonClicked(MButton *button);
    /// Adds an e-mail address as it was typed; an empty one is ignored, one that is there already is added again.
    void addNewAddress(QString text);
    /// Adds a user. Ignored if either text is empty or there is a recipient of that name, whatever its id.
    void addNewUIDAddress(QString userName, QString uuid);
    /// The recipients in the order in which they were added: the e-mail addresses, or the ids of the users.
    QStringList getAllAddress();
    int getRecipientsCount();

private:
    void addRecipient(MButton *button);
    void removeRecipient(MButton *button);

    /// A place for a dialog of the owner. Deliberately not used here: each click opens a new dialog, which goes when
    /// it is done.
    MDialog *dlgInputName = nullptr;
    MButtonGroup *btnGroup;
    MWidget *centralWidget;
    MFlowLayoutPolicy *m_policy;
    SelectButton *btnAdd;
    MLabel *lblTo;
    Address_Type type = EMAIL;
};

/// A recipient, whom a tap removes: the cross at the right end says so.
class RecipientButton : public MButton {
    Q_OBJECT

public:
    explicit RecipientButton(const QString &text);

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget = nullptr) override;
};

/// Recipient that is a user: shows the name, carries the id.
class UUIDButton : public RecipientButton {
    Q_OBJECT

public:
    UUIDButton(QString text, QString uuid);

    const QString uuid;
};

/// Asks for one e-mail address.
class InputDialog : public MDialog {
    Q_OBJECT

public:
    InputDialog();

    /// Tells what was typed, whatever @p result says, then ends the dialog.
    void done(int result) override;
    /// Empties the field first: Escape and a tap beside the dialog add nothing.
    void reject() override;

signals:
    void inputDialogDone(QString text);

private:
    QString text;
    MTextEdit *textInput;
};
