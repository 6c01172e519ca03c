#pragma once
// TLabel: a QLabel that follows the scale (see ICallDPIChanged).
//
// Its size setters take logical pixels and are applied again at each change of scale;
// they hide QLabel's functions of the same name. Pictures:
// - setPixmap(QString path) loads the picture at `path` for the label's scale
//   (ImagePath::GetStretchPixmap: SVGs are rendered at that scale) and loads it anew at
//   each change of scale, as long as the label still shows a picture;
// - setPixmap(QPixmap) shows the pixmap as it is and forgets any path.
// Text carries no pixel size of its own (fonts come from the scaled style sheet), so
// setText scales nothing; but a label that asked for adjustSize() is fitted again after
// setText and after each font change, so it keeps fitting its text at every scale.

#include "uilib/dpi_changed.h"
#include "uilib/kelvouilib_export.h"
#include "uilib/scaled_sizes.h"

#include <QLabel>

class KELVOUILIB_EXPORT TLabel : public QLabel, public CSingleDPIChanged
{
    Q_OBJECT
public:
    explicit TLabel(float scale, QWidget *parent = nullptr);
    TLabel(float scale, QString const &text, QWidget *parent = nullptr);
    ~TLabel() override;

    void adjustSize();
    void setFixedSize(int width, int height);
    void setFixedWidth(int width);
    void setFixedHeight(int height);
    void setMinimumWidth(int width);
    void setMaximumWidth(int width);
    void setPixmap(QPixmap const &pixmap);
    void setPixmap(QString const &path);
    void setText(QString const &text);
    // The path given to setPixmap(QString); empty after any other content was set.
    QString pixmapPath() const { return m_pixmapPath; }

    void ScaleChanged(float scale) override;

    // Fits the label to its content again when it asked for adjustSize().
    virtual void AdjustReiszeHandle();

protected:
    bool event(QEvent *event) override;

private:
    void LoadPixmap();

    ScaledSizes m_sizes;
    QString m_pixmapPath;
};
