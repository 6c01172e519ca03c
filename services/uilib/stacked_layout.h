#pragma once
// TStackedLayout: a QStackedLayout that follows the scale (see ICallDPIChanged).
//
// A change of scale reaches every page, shown or not. addWidget and insertWidget bring
// a page made at another scale to the layout's scale.

#include "uilib/dpi_changed.h"
#include "uilib/kelvouilib_export.h"

#include <QStackedLayout>

class KELVOUILIB_EXPORT TStackedLayout : public QStackedLayout, public CWidgetDPIChanged
{
    Q_OBJECT
public:
    explicit TStackedLayout(float scale, QWidget *parent = nullptr);
    ~TStackedLayout() override;

    int addWidget(QWidget *widget);
    int insertWidget(int index, QWidget *widget);

    void ScaleChanged(float scale) override;
};
