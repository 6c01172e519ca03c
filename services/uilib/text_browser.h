#pragma once
// TTextBrowser: a QTextBrowser that follows the scale (see ICallDPIChanged).
//
// setFixedHeight takes logical pixels and is applied again at each change of scale; it
// hides QTextBrowser::setFixedHeight. A document's own size is physical: divide it by the
// scale (DpiTool::Logical) before passing it to setFixedHeight.

#include "uilib/dpi_changed.h"
#include "uilib/kelvouilib_export.h"
#include "uilib/scaled_sizes.h"

#include <QTextBrowser>

class KELVOUILIB_EXPORT TTextBrowser : public QTextBrowser, public CRemoveDPIChanged
{
    Q_OBJECT
public:
    explicit TTextBrowser(float scale, QWidget *parent = nullptr);
    ~TTextBrowser() override;

    void setFixedHeight(int height);

    void ScaleChanged(float scale) override;

private:
    ScaledSizes m_sizes;
};
