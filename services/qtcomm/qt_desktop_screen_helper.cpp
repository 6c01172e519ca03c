#include "qtcomm/qt_desktop_screen_helper.h"

#include <QCursor>
#include <QGuiApplication>
#include <QObject>
#include <QScreen>

#include <algorithm>
#include <vector>

namespace {

struct ScreenSeam
{
    bool active = false;
    QList<QRect> rects;
    std::vector<CQtDesktopScreenHelper *> live;
};

// Leaked on purpose: helpers with static storage leave it during exit.
ScreenSeam &Seam()
{
    static auto *const seam = new ScreenSeam;
    return *seam;
}

void RereadAll()
{
    // A copy: InitGlobalRect overrides may create or destroy helpers.
    std::vector<CQtDesktopScreenHelper *> const live = Seam().live;
    for (CQtDesktopScreenHelper *helper : live) {
        if (std::find(Seam().live.begin(), Seam().live.end(), helper) != Seam().live.end())
            helper->InitGlobalRect();
    }
}

} // namespace

CQtDesktopScreenHelper::CQtDesktopScreenHelper()
{
    InitGlobalRect();
    InitScreenSignals();
    Seam().live.push_back(this);
}

CQtDesktopScreenHelper::~CQtDesktopScreenHelper()
{
    auto &live = Seam().live;
    live.erase(std::remove(live.begin(), live.end(), this), live.end());
}

void CQtDesktopScreenHelper::InitGlobalRect()
{
    ScreenSeam const &seam = Seam();
    m_screenRects.clear();
    if (seam.active) {
        m_screenRects = seam.rects;
        m_readWithApplication = true;
        return;
    }
    m_readWithApplication = qGuiApp != nullptr;
    if (!qGuiApp)
        return;
    QScreen *const primary = QGuiApplication::primaryScreen();
    if (primary)
        m_screenRects.append(primary->geometry());
    for (QScreen *screen : QGuiApplication::screens()) {
        if (screen != primary)
            m_screenRects.append(screen->geometry());
    }
}

void CQtDesktopScreenHelper::InitScreenSignals()
{
    if (!qGuiApp || m_context)
        return;
    m_context = std::make_unique<QObject>();
    QObject::connect(qGuiApp, &QGuiApplication::screenAdded, m_context.get(), [this](QScreen *screen) {
        ConnectScreen(screen);
        InitGlobalRect();
    });
    QObject::connect(qGuiApp, &QGuiApplication::screenRemoved, m_context.get(), [this](QScreen *screen) {
        InitGlobalRect();
        // The screen may still be listed while it goes.
        if (!Seam().active && screen)
            m_screenRects.removeOne(screen->geometry());
    });
    QObject::connect(qGuiApp, &QGuiApplication::primaryScreenChanged, m_context.get(), [this] { InitGlobalRect(); });
    for (QScreen *screen : QGuiApplication::screens())
        ConnectScreen(screen);
}

void CQtDesktopScreenHelper::ConnectScreen(QScreen *screen)
{
    if (screen && m_context)
        QObject::connect(screen, &QScreen::geometryChanged, m_context.get(), [this] { InitGlobalRect(); });
}

void CQtDesktopScreenHelper::EnsureRead()
{
    // Built before the application existed (a static object): read now, and follow
    // screen changes from now on.
    if (m_readWithApplication || (!qGuiApp && !Seam().active))
        return;
    InitGlobalRect();
    if (!m_context && qGuiApp)
        CQtDesktopScreenHelper::InitScreenSignals();
}

QRect CQtDesktopScreenHelper::CurScreenWithMouseIn()
{
    if (!qGuiApp)
        return QRect();
    return CurScreenWithPointIn(QCursor::pos());
}

QRect CQtDesktopScreenHelper::CurScreenWithPointIn(QPoint const &point)
{
    EnsureRead();
    for (QRect const &rect : qAsConst(m_screenRects)) {
        if (rect.contains(point))
            return rect;
    }
    return QRect();
}

QList<QRect> CQtDesktopScreenHelper::ScreenRects() const
{
    return m_screenRects;
}

void CQtDesktopScreenHelper::SetScreenRectsForTest(QList<QRect> const &rects)
{
    Seam().active = true;
    Seam().rects = rects;
    RereadAll();
}

void CQtDesktopScreenHelper::ClearScreenRectsForTest()
{
    Seam().active = false;
    Seam().rects.clear();
    RereadAll();
}
