#pragma once
// TComboBox: a QComboBox that follows the scale (see ICallDPIChanged).
//
// setFixedWidth takes logical pixels and is applied again at each change of scale; it hides
// QComboBox::setFixedWidth. The drop-down list lives in a pop-up window of its own, which
// the walk of a change of scale does not enter: a control with a scaled pop-up view passes
// the change on to it in its ScaleChanged.

#include "uilib/dpi_changed.h"
#include "uilib/kelvouilib_export.h"
#include "uilib/scaled_sizes.h"

#include <QComboBox>

class KELVOUILIB_EXPORT TComboBox : public QComboBox, public CRemoveDPIChanged
{
    Q_OBJECT
public:
    explicit TComboBox(float scale, QWidget *parent = nullptr);
    ~TComboBox() override;

    void setFixedWidth(int width);

    void ScaleChanged(float scale) override;

private:
    ScaledSizes m_sizes;
};
