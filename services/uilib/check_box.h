#pragma once
// TCheckBox: a QCheckBox that follows the scale (see ICallDPIChanged).
//
// setFixedSize takes logical pixels and is applied again at each change of scale; it hides
// QCheckBox::setFixedSize.

#include "uilib/dpi_changed.h"
#include "uilib/kelvouilib_export.h"
#include "uilib/scaled_sizes.h"

#include <QCheckBox>

class KELVOUILIB_EXPORT TCheckBox : public QCheckBox, public CRemoveDPIChanged
{
    Q_OBJECT
public:
    explicit TCheckBox(float scale, QWidget *parent = nullptr);
    ~TCheckBox() override;

    void setFixedSize(int width, int height);

    void ScaleChanged(float scale) override;

private:
    ScaledSizes m_sizes;
};
