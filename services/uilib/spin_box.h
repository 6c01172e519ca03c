#pragma once
// TSpinBox: a QSpinBox that follows the scale (see ICallDPIChanged).
//
// setFixedSize takes logical pixels and is applied again at each change of scale; it hides
// QSpinBox::setFixedSize.

#include "uilib/dpi_changed.h"
#include "uilib/kelvouilib_export.h"
#include "uilib/scaled_sizes.h"

#include <QSpinBox>

class KELVOUILIB_EXPORT TSpinBox : public QSpinBox, public CRemoveDPIChanged
{
    Q_OBJECT
public:
    explicit TSpinBox(float scale, QWidget *parent = nullptr);
    ~TSpinBox() override;

    void setFixedSize(int width, int height);

    void ScaleChanged(float scale) override;

private:
    ScaledSizes m_sizes;
};
