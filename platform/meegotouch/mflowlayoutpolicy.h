// SPDX-License-Identifier: MIT
#pragma once

#include "mabstractlayoutpolicy.h"

#include <QVector>

/// Lays its items out like words: side by side at their preferred sizes, a new row whenever the next one does not
/// fit the width. Rows are as high as their highest item, the items stand at their top. An item wider than the whole
/// width gets a row of that width. The height that is needed depends on the width.
class MFlowLayoutPolicy : public MAbstractLayoutPolicy {
public:
    explicit MFlowLayoutPolicy(MLayout *layout);

    /// Distance between neighbours and between rows, in scene pixels; a negative one counts as 0.
    void setSpacing(qreal spacing);

    QSizeF sizeHint(Qt::SizeHint which, const QSizeF &constraint = QSizeF()) const override;
    void relayout() override;

private:
    QVector<QRectF> flow(qreal width) const;

    qreal m_spacing = 0;
};
