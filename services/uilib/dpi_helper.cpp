#include "uilib/dpi_helper.h"

#include "uilib/dpi_changed.h"
#include "uilib/dpi_tool.h"
#include "uilib/scale_pass.h"

#include "qtcomm/qt_kelvo_helper.h"

#include <QApplication>
#include <QPointer>
#include <QScreen>
#include <QWindow>

#include <unordered_map>
#include <unordered_set>
#include <vector>

IDPIHelper::~IDPIHelper() = default;

namespace {

class DpiHelper final : public IDPIHelper
{
public:
    QString GetWindowStyleSheet(WId wid) override;
    float GetWindowScale(QWidget const *widget) const override;
    void SetWindowScale(QWidget *widget, float scale) override;
    void WatchWindow(QWidget *window) override;
    void UpdateWindowStyleSheet(QWidget *window) override;
    void SetApplicationStyleSheet(QString const &sheet) override;
    QString GetApplicationStyleSheet() const override { return m_sheet; }

    unsigned int Register(ICallDPIChanged *object) override;
    bool Unregister(ICallDPIChanged *object) override;
    bool IsRegistered(ICallDPIChanged const *object) const override { return m_objects.count(object) != 0; }
    std::size_t RegisteredCount() const override { return m_objects.size(); }

private:
    struct Window
    {
        float scale = 1.0f;       // used for plain windows; a scaled window answers itself
        QPointer<QWindow> handle; // the native window whose screen changes we follow
        bool styled = false;      // the helper has set the window's style sheet
    };

    Window &Know(QWidget *window);
    void OnScreenChanged(QWidget *window, QScreen *screen);
    QWidget *FindWindow(WId wid) const;

    std::unordered_set<ICallDPIChanged const *> m_objects;
    unsigned int m_serial = 0;
    QString m_sheet;
    std::unordered_map<QWidget const *, Window> m_windows;
};

DpiHelper::Window &DpiHelper::Know(QWidget *window)
{
    auto found = m_windows.find(window);
    if (found == m_windows.end()) {
        found = m_windows.emplace(window, Window()).first;
        found->second.scale = DpiTool::ScaleOf(window);
        QObject::connect(window, &QObject::destroyed, [this, window] { m_windows.erase(window); });
    }
    Window &entry = found->second;
    // The native window is made at the first show and made anew on some re-parenting.
    QWindow *handle = window->windowHandle();
    if (handle && entry.handle != handle) {
        entry.handle = handle;
        QObject::connect(handle, &QWindow::screenChanged, window,
                         [this, window](QScreen *screen) { OnScreenChanged(window, screen); });
    }
    return entry;
}

void DpiHelper::OnScreenChanged(QWidget *window, QScreen *screen)
{
    float const scale = DpiTool::ScreenScale(screen);
    if (scale != GetWindowScale(window))
        SetWindowScale(window, scale);
}

QWidget *DpiHelper::FindWindow(WId wid) const
{
    if (wid == 0)
        return nullptr;
    for (auto const &entry : m_windows) {
        QWidget *window = const_cast<QWidget *>(entry.first);
        if (window->internalWinId() == wid)
            return window;
    }
    if (!qobject_cast<QApplication *>(QCoreApplication::instance()))
        return nullptr;
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->internalWinId() == wid)
            return window;
    }
    return nullptr;
}

QString DpiHelper::GetWindowStyleSheet(WId wid)
{
    if (m_sheet.isEmpty())
        return QString();
    QWidget *window = FindWindow(wid);
    float const scale = window ? GetWindowScale(window) : DpiTool::GetWidgetDpi(nullptr);
    return QtKelvoHelper::ScaleSheet(m_sheet, scale);
}

float DpiHelper::GetWindowScale(QWidget const *widget) const
{
    if (!widget)
        return 1.0f;
    QWidget const *window = widget->window();
    if (CRemoveDPIChanged const *scaled = ScalePass::Scaled(window))
        return scaled->GetScale();
    auto const found = m_windows.find(window);
    if (found != m_windows.end())
        return found->second.scale;
    return DpiTool::GetWidgetDpi(const_cast<QWidget *>(window));
}

void DpiHelper::SetWindowScale(QWidget *widget, float scale)
{
    if (!widget || !DpiTool::IsValidScale(scale))
        return;
    QWidget *window = widget->window();
    Know(window).scale = scale;
    ScalePass::Run(window, scale);
    // A scaled window re-styled itself in its ScaleChanged; a plain one did not.
    UpdateWindowStyleSheet(window);
}

void DpiHelper::WatchWindow(QWidget *window)
{
    if (!window || !window->isWindow())
        return;
    Know(window);
    UpdateWindowStyleSheet(window);
}

void DpiHelper::UpdateWindowStyleSheet(QWidget *window)
{
    if (!window || !window->isWindow() || window->parentWidget())
        return;
    auto const found = m_windows.find(window);
    bool const styled = found != m_windows.end() && found->second.styled;
    if (m_sheet.isEmpty() && !styled)
        return;
    Window &entry = Know(window);
    QString const sheet = QtKelvoHelper::ScaleSheet(m_sheet, GetWindowScale(window));
    // Setting a sheet re-polishes the whole window: skip it when nothing changed.
    if (window->styleSheet() != sheet)
        window->setStyleSheet(sheet);
    entry.styled = !m_sheet.isEmpty();
}

void DpiHelper::SetApplicationStyleSheet(QString const &sheet)
{
    m_sheet = sheet;
    std::vector<QWidget *> windows;
    windows.reserve(m_windows.size());
    for (auto const &entry : m_windows)
        windows.push_back(const_cast<QWidget *>(entry.first));
    for (QWidget *window : windows)
        UpdateWindowStyleSheet(window);
}

unsigned int DpiHelper::Register(ICallDPIChanged *object)
{
    if (!object)
        return 0;
    if (++m_serial == 0)
        ++m_serial;
    m_objects.insert(object);
    return m_serial;
}

bool DpiHelper::Unregister(ICallDPIChanged *object)
{
    return m_objects.erase(object) != 0;
}

} // namespace

IDPIHelper *GetDPIHelper()
{
    // Never destroyed: scaled objects may outlive static destruction order.
    static DpiHelper *helper = new DpiHelper;
    return helper;
}
