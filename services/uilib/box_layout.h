#pragma once
// TBoxLayout, THBoxLayout, TVBoxLayout: box layouts that follow the scale (see
// ICallDPIChanged).
//
// Margins, spacing and the spacings added with addSpacing/insertSpacing take logical
// pixels and are applied again at each change of scale; a negative margin or spacing
// means the style's default, as in Qt. spacing() answers in logical pixels too. The
// functions hide QBoxLayout's of the same name, so a call through a QLayout * reaches
// Qt with physical pixels. addWidget, insertWidget and addLayout bring an object made
// at another scale to the layout's scale. A change of scale reaches every item: the
// widgets, nested layouts and their contents.
//
// Constructors without a scale take it from `parent` (the nearest scaled object up its
// chain), else from the screen.

#include "uilib/dpi_changed.h"
#include "uilib/kelvouilib_export.h"
#include "uilib/scaled_layout_values.h"

#include <QBoxLayout>

class KELVOUILIB_EXPORT TBoxLayout : public QBoxLayout, public CLayoutDPIChanged
{
    Q_OBJECT
public:
    TBoxLayout(Direction direction, float scale, QWidget *parent = nullptr);
    ~TBoxLayout() override;

    void addWidget(QWidget *widget, int stretch = 0, Qt::Alignment alignment = Qt::Alignment());
    void insertWidget(int index, QWidget *widget, int stretch = 0, Qt::Alignment alignment = Qt::Alignment());
    void removeWidget(QWidget *widget);
    void addLayout(QLayout *layout, int stretch = 0);
    void addSpacing(int size);
    void insertSpacing(int index, int size);
    void setSpacing(int spacing);
    int spacing() const;
    void setMargin(int margin);
    void setContentsMargins(int left, int top, int right, int bottom);

    void ScaleChanged(float scale) override;

private:
    ScaledLayoutValues m_values;
};

class KELVOUILIB_EXPORT THBoxLayout : public TBoxLayout
{
    Q_OBJECT
public:
    THBoxLayout(float scale, QWidget *parent = nullptr);
    explicit THBoxLayout(QWidget *parent = nullptr);
    ~THBoxLayout() override;
};

class KELVOUILIB_EXPORT TVBoxLayout : public TBoxLayout
{
    Q_OBJECT
public:
    TVBoxLayout(float scale, QWidget *parent = nullptr);
    explicit TVBoxLayout(QWidget *parent = nullptr);
    ~TVBoxLayout() override;
};
