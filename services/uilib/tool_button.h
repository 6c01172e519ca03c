#pragma once
// TToolButton: a QToolButton that follows the scale (see ICallDPIChanged).
//
// setFixedSize takes logical pixels and is applied again at each change of scale.
// setIcon(QString path) loads the picture at `path` for the button's scale
// (ImagePath::GetStretchPixmap: SVGs are rendered at that scale), makes the icon size
// the picture's size, and loads it anew at each change of scale; setIcon(QIcon) is
// Qt's and forgets any path. SetKelvoData keeps one user value on the button.

#include "uilib/dpi_changed.h"
#include "uilib/kelvouilib_export.h"
#include "uilib/scaled_sizes.h"

#include <QToolButton>
#include <QVariant>

class KELVOUILIB_EXPORT TToolButton : public QToolButton, public CSingleDPIChanged
{
    Q_OBJECT
public:
    explicit TToolButton(float scale, QWidget *parent = nullptr);
    ~TToolButton() override;

    void setFixedSize(int width, int height);
    void setIcon(QString const &path);
    void setIcon(QIcon const &icon);
    QString iconPath() const { return m_iconPath; }

    void SetKelvoData(QVariant const &data);
    QVariant GetKelvoData() const;

    void ScaleChanged(float scale) override;

private:
    void LoadIcon();

    ScaledSizes m_sizes;
    QString m_iconPath;
    QVariant m_data;
};
