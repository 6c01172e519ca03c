#pragma once
// TScrollBar: a QScrollBar that follows the scale (see ICallDPIChanged).
//
// A vertical bar unless setOrientation says otherwise. It has no scaled setters; it takes
// part in changes of scale so that controls can read m_scale when they paint it.

#include "uilib/dpi_changed.h"
#include "uilib/kelvouilib_export.h"

#include <QScrollBar>

class KELVOUILIB_EXPORT TScrollBar : public QScrollBar, public CSingleDPIChanged
{
    Q_OBJECT
public:
    explicit TScrollBar(float scale, QWidget *parent = nullptr);
    ~TScrollBar() override;

    void ScaleChanged(float scale) override;
};
