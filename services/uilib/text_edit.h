#pragma once
// TTextEdit: a QTextEdit that follows the scale (see ICallDPIChanged).
//
// setFixedHeight takes logical pixels and is applied again at each change of scale; it
// hides QTextEdit::setFixedHeight. A document's own size is physical: divide it by the
// scale (DpiTool::Logical) before passing it to setFixedHeight.

#include "uilib/dpi_changed.h"
#include "uilib/kelvouilib_export.h"
#include "uilib/scaled_sizes.h"

#include <QTextEdit>

class KELVOUILIB_EXPORT TTextEdit : public QTextEdit, public CRemoveDPIChanged
{
    Q_OBJECT
public:
    explicit TTextEdit(float scale, QWidget *parent = nullptr);
    TTextEdit(float scale, QString const &text, QWidget *parent = nullptr);
    ~TTextEdit() override;

    void setFixedHeight(int height);

    void ScaleChanged(float scale) override;

private:
    ScaledSizes m_sizes;
};
