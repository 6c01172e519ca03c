#pragma once
// TLineEdit: a QLineEdit that follows the scale (see ICallDPIChanged).
//
// Its size setters and setTextMargins take logical pixels and are applied again at
// each change of scale; they hide QLineEdit's functions of the same name. setLayout
// (for buttons placed inside the edit) brings a layout made at another scale to this
// edit's scale.

#include "uilib/dpi_changed.h"
#include "uilib/kelvouilib_export.h"
#include "uilib/scaled_sizes.h"

#include <QLineEdit>
#include <QMargins>

class TWidget;

class KELVOUILIB_EXPORT TLineEdit : public QLineEdit, public CSingleDPIChanged
{
    Q_OBJECT
public:
    explicit TLineEdit(float scale, QWidget *parent = nullptr);
    TLineEdit(float scale, QString const &text, TWidget *parent = nullptr);
    ~TLineEdit() override;

    void setFixedSize(int width, int height);
    void setFixedSize(QSize const &size);
    void setFixedHeight(int height);
    void setTextMargins(int left, int top, int right, int bottom);
    void setLayout(QLayout *layout);

    void ScaleChanged(float scale) override;

private:
    void ApplyTextMargins();

    ScaledSizes m_sizes;
    QMargins m_textMargins;
    bool m_hasTextMargins = false;
};
