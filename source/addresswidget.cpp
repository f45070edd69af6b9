// SPDX-License-Identifier: MIT
#include "addresswidget.h"

#include "accessiblenames.h"
#include "globaldefine.h"
#include "mybutton.h"

#include "mbuttongroup.h"
#include "mflowlayoutpolicy.h"
#include "mlabel.h"
#include "mlayout.h"
#include "mtextedit.h"

#include <QGraphicsScene>
#include <QPainter>

#include <algorithm>

namespace {

// Scene pixels.
constexpr qreal itemSpacing = 10;
constexpr qreal lineHeight = 30;
constexpr qreal captionWidth = 400;
constexpr qreal rightMargin = 20;
constexpr qreal recipientHeight = 40;
constexpr int characterWidth = 18;
constexpr int recipientPadding = 20;

constexpr qreal crossSize = 8;
constexpr qreal crossMargin = 10;

} // namespace

AddressWidget::AddressWidget()
    : btnGroup(nullptr)
    , centralWidget(new MWidget)
{
    auto *layout = new MLayout;
    // The caption and the add button just fit their line, and no other line is longer.
    layout->setContentsMargins(0, 0, rightMargin, 0);
    m_policy = new MFlowLayoutPolicy(layout);
    m_policy->setSpacing(itemSpacing);

    lblTo = new MLabel(localized(TXT_SEND_TO));
    lblTo->setPreferredSize(captionWidth, lineHeight);
    m_policy->addItem(lblTo);
    btnAdd = new SelectButton(AddNewImage, AddNewImage, SelectButton::NoCaption);
    btnAdd->setPreferredSize(lineHeight, lineHeight);
    btnAdd->setAccessibleName(localized(NAME_ADD_RECIPIENT));
    m_policy->addItem(btnAdd);
    connect(btnAdd, &MButton::clicked, this, &AddressWidget::on_btnNewAddressClicked);

    centralWidget->setLayout(layout);
    setWidget(centralWidget);

    btnGroup = new MButtonGroup;
    connect(btnGroup, qOverload<MButton *>(&MButtonGroup::buttonClicked), this, &AddressWidget::addressButtonClicked);
}

AddressWidget::~AddressWidget()
{
    btnGroup->disconnect(this);
    qDeleteAll(btnGroup->buttons());
    delete btnGroup;
    delete btnAdd;
    delete lblTo;
}

void AddressWidget::show(Address_Type addressType)
{
    type = addressType;
    setVisible(true);
    const QList<MButton *> recipients = btnGroup->buttons();
    for (MButton *button : recipients)
        removeRecipient(button);
}

void AddressWidget::on_btnNewAddressClicked()
{
    if (type == MESSAGE) {
        emit btnAddressClicked();
        return;
    }
    auto *dialog = new InputDialog;
    dialog->appear(MSceneWindow::DestroyWhenDone);
    connect(dialog, &InputDialog::inputDialogDone, this, &AddressWidget::on_dlgInputNameClosed);
}

void AddressWidget::on_dlgInputNameClosed(QString text)
{
    addNewAddress(text);
}

void AddressWidget::addressButtonClicked(MButton *button)
{
    if (btnGroup->buttons().contains(button))
        removeRecipient(button);
}

void AddressWidget::addNewAddress(QString text)
{
    if (!text.isEmpty())
        addRecipient(new RecipientButton(text));
}

void AddressWidget::addNewUIDAddress(QString userName, QString uuid)
{
    if (userName.isEmpty() || uuid.isEmpty())
        return;
    const QList<MButton *> recipients = btnGroup->buttons();
    const bool isThere = std::any_of(recipients.begin(), recipients.end(),
                                     [&](const MButton *button) { return button->text() == userName; });
    if (!isThere)
        addRecipient(new UUIDButton(userName, uuid));
}

QStringList AddressWidget::getAllAddress()
{
    QStringList addresses;
    const QList<MButton *> recipients = btnGroup->buttons();
    for (const MButton *button : recipients) {
        const auto *user = qobject_cast<const UUIDButton *>(button);
        if (type == EMAIL)
            addresses << button->text();
        else if (user)
            addresses << user->uuid;
    }
    return addresses;
}

int AddressWidget::getRecipientsCount()
{
    return btnGroup->buttons().size();
}

void AddressWidget::addRecipient(MButton *button)
{
    button->setPreferredSize(button->text().length() * characterWidth + recipientPadding, recipientHeight);
    m_policy->addItem(button);
    btnGroup->addButton(button);
    reveal(button);
}

/// The button is out of everything at once, but deleted later only: it may be in the middle of telling its click.
void AddressWidget::removeRecipient(MButton *button)
{
    btnGroup->removeButton(button);
    m_policy->removeItem(button);
    if (button->scene())
        button->scene()->removeItem(button);
    button->deleteLater();
}

RecipientButton::RecipientButton(const QString &text)
    : MButton(text)
{
    setContentsMargins(0, 0, crossSize, 0);
    setAccessibleName(localized(NAME_REMOVE_RECIPIENT).arg(text));
}

void RecipientButton::paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget)
{
    MButton::paint(painter, option, widget);
    const QRectF cross(size().width() - crossMargin - crossSize, (size().height() - crossSize) / 2, crossSize,
                       crossSize);
    painter->setPen(QPen(Qt::white, 2, Qt::SolidLine, Qt::RoundCap));
    painter->drawLine(cross.topLeft(), cross.bottomRight());
    painter->drawLine(cross.topRight(), cross.bottomLeft());
}

UUIDButton::UUIDButton(QString text, QString uuid)
    : RecipientButton(text)
    , uuid(std::move(uuid))
{
}

InputDialog::InputDialog()
    : MDialog(localized(TXT_EMAIL), M::OkButton)
    , textInput(new MTextEdit(MTextEditModel::SingleLine))
{
    textInput->setContentType(M::EmailContentType);
    textInput->setAccessibleName(localized(TXT_EMAIL));
    setCentralWidget(textInput);
    setDismissedByTapOutside(true);
    // Ready to be typed into as soon as it appears.
    textInput->setFocus();
}

// Deliberately: whoever backs out wants nothing added, while done() hands on whatever the field holds.
void InputDialog::reject()
{
    textInput->clear();
    MDialog::reject();
}

void InputDialog::done(int result)
{
    text = textInput->text();
    emit inputDialogDone(text);
    MDialog::done(result);
}
