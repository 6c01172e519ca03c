#pragma once
// TPushButton: a QPushButton that follows the scale (see ICallDPIChanged).
//
// Its size setters take logical pixels and are applied again at each change of scale;
// they hide QPushButton's functions of the same name. QPushButton::setMenu does not
// re-parent the menu, so TPushButton::setMenu records it: while it is still the
// button's menu, each change of scale reaches it too (a menu destroyed meanwhile is
// simply skipped). SetKelvoData/GetKelvoData keep one user value, such as an id.

#include "uilib/dpi_changed.h"
#include "uilib/kelvouilib_export.h"
#include "uilib/scaled_sizes.h"

#include <QPointer>
#include <QPushButton>
#include <QVariant>

class QMenu;

class KELVOUILIB_EXPORT TPushButton : public QPushButton, public CRemoveDPIChanged
{
    Q_OBJECT
public:
    explicit TPushButton(float scale, QWidget *parent = nullptr);
    TPushButton(float scale, QString const &text, QWidget *parent = nullptr);
    ~TPushButton() override;

    void setFixedSize(int width, int height);
    void setFixedWidth(int width);
    void setFixedHeight(int height);
    void setMenu(QMenu *menu);

    void SetKelvoData(QVariant const &data);
    QVariant GetKelvoData() const;

    void ScaleChanged(float scale) override;

private:
    ScaledSizes m_sizes;
    QPointer<QMenu> m_menu;
    QVariant m_data;
};
