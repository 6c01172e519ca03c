#pragma once
// The gallery's main window: the list of pages on the left, the current page on the
// right, and menus that switch scale, skin and language while it runs.

#include <KelvoControl.h>

#include <QPointer>

class QMenuBar;
class QStackedWidget;

class GalleryWindow : public TWidget
{
    Q_OBJECT
public:
    explicit GalleryWindow(float scale);

    int PageCount() const;
    void ShowPage(int index);
    QString PageId(int index) const;

    // Re-scales the whole window as a client does: through the DPI helper.
    void ApplyScale(float scale);
    float CurrentScale() const { return m_scale; }

    // Rebuilds every page so that it reads its texts in the current language.
    void Retranslate();

private:
    void BuildMenus();
    void BuildPages();

    QMenuBar *m_menuBar = nullptr;
    TListWidget *m_pageList = nullptr;
    QStackedWidget *m_stack = nullptr;
};
