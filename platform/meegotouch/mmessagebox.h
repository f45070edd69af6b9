// SPDX-License-Identifier: MIT
#pragma once

#include "mdialog.h"

class MLabel;

/// A dialog that says something.
class MMessageBox : public MDialog {
    Q_OBJECT

public:
    /// @p text is plain, wraps, and the box grows with it.
    explicit MMessageBox(const QString &text, M::StandardButtons buttons = M::OkButton);

    QString text() const;

protected:
    QString shownText() const override { return text(); }

private:
    MLabel *m_label;
};
