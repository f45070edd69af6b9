#include "mmessagebox.h"

#include "mlabel.h"
#include "mstyle.h"

MMessageBox::MMessageBox(const QString &text, M::StandardButtons buttons)
    : MDialog(QString(), buttons)
    , m_label(new MLabel(text))
{
    m_label->setWordWrap(true);
    m_label->setAlignment(Qt::AlignCenter);
    m_label->setColor(QColor::fromRgba(MStyle::popupTextColor));
    setCentralWidget(m_label);
}

QString MMessageBox::text() const
{
    return m_label->text();
}
