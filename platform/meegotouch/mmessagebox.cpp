// SPDX-License-Identifier: MIT
#include "mmessagebox.h"

#include "mlabel.h"
#include "mstyle.h"

MMessageBox::MMessageBox(const QString &text, M::StandardButtons buttons)
    : MDialog(QString(), buttons)
    , m_label(new MLabel(text))
{
    QFont textFont = m_label->font();
    textFont.setPixelSize(MStyle::popupTextSize);
    m_label->setFont(textFont);
    m_label->setWordWrap(true);
    m_label->setAlignment(Qt::AlignCenter);
    m_label->setColor(MStyle::popupText);
    setPadding(MStyle::messagePadding);
    setCentralWidget(m_label);
}

QString MMessageBox::text() const
{
    return m_label->text();
}
