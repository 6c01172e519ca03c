#include "gallery_window.h"

#include "shared/gallery_page.h"
#include "shared/gallery_theme.h"

#include <QActionGroup>
#include <QMenuBar>
#include <QStackedWidget>

namespace {
float const kScales[] = {1.0f, 1.25f, 1.5f, 2.0f};
}

GalleryWindow::GalleryWindow(float scale)
    : TWidget(scale, nullptr)
{
    setObjectName(QStringLiteral("GalleryWindow"));
    auto *outer = new TVBoxLayout(m_scale, nullptr);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->setSpacing(0);
    setLayout(outer);

    m_menuBar = new QMenuBar(nullptr);
    outer->addWidget(m_menuBar, 0, Qt::Alignment());

    auto *body = new THBoxLayout(m_scale, nullptr);
    body->setContentsMargins(0, 0, 0, 0);
    body->setSpacing(0);
    outer->addLayout(body, 1);

    // The list's width is a scaled frame's: TListWidget scales its items, not itself.
    auto *listFrame = new TFrame(m_scale, nullptr);
    listFrame->setFixedWidth(180);
    auto *listLayout = new TVBoxLayout(m_scale, nullptr);
    listLayout->setContentsMargins(0, 0, 0, 0);
    listFrame->setLayout(listLayout);
    m_pageList = new TListWidget(m_scale, nullptr);
    m_pageList->setObjectName(QStringLiteral("GalleryPageList"));
    listLayout->addWidget(m_pageList, 0, Qt::Alignment());
    body->addWidget(listFrame, 0, Qt::Alignment());

    m_stack = new QStackedWidget(nullptr);
    m_stack->setObjectName(QStringLiteral("GalleryStack"));
    body->addWidget(m_stack, 1, Qt::Alignment());

    connect(m_pageList, &QListWidget::currentRowChanged, m_stack, &QStackedWidget::setCurrentIndex);

    BuildMenus();
    BuildPages();
    resize(1000, 680);
}

int GalleryWindow::PageCount() const
{
    return m_stack->count();
}

void GalleryWindow::ShowPage(int index)
{
    m_pageList->setCurrentRow(index);
}

QString GalleryWindow::PageId(int index) const
{
    auto const &pages = GalleryPages();
    return index >= 0 && index < int(pages.size()) ? pages[size_t(index)].id : QString();
}

void GalleryWindow::ApplyScale(float scale)
{
    GetDPIHelper()->SetWindowScale(this, scale);
}

void GalleryWindow::BuildMenus()
{
    // clear() only removes the actions; the menus it made would outlive a retranslation.
    qDeleteAll(m_menuBar->findChildren<QMenu *>(QString(), Qt::FindDirectChildrenOnly));
    m_menuBar->clear();

    QMenu *scaleMenu = m_menuBar->addMenu(GalleryTheme::Text(L"gallery_menu_scale"));
    auto *scales = new QActionGroup(scaleMenu);
    for (float s : kScales) {
        QAction *action = scaleMenu->addAction(QString::number(double(s), 'f', 2));
        action->setCheckable(true);
        action->setChecked(qFuzzyCompare(s, m_scale));
        scales->addAction(action);
        connect(action, &QAction::triggered, this, [this, s] { ApplyScale(s); });
    }

    QMenu *skinMenu = m_menuBar->addMenu(GalleryTheme::Text(L"gallery_menu_skin"));
    auto *skins = new QActionGroup(skinMenu);
    for (auto skin : {GalleryTheme::Skin::Light, GalleryTheme::Skin::Dark}) {
        QAction *action = skinMenu->addAction(GalleryTheme::SkinName(skin));
        action->setCheckable(true);
        action->setChecked(GalleryTheme::CurrentSkin() == skin);
        skins->addAction(action);
        connect(action, &QAction::triggered, this, [skin] { GalleryTheme::SetSkin(skin); });
    }

    QMenu *languageMenu = m_menuBar->addMenu(GalleryTheme::Text(L"gallery_menu_language"));
    auto *languages = new QActionGroup(languageMenu);
    for (auto language : {GalleryTheme::Language::English, GalleryTheme::Language::Chinese}) {
        QAction *action = languageMenu->addAction(GalleryTheme::LanguageName(language));
        action->setCheckable(true);
        action->setChecked(GalleryTheme::CurrentLanguage() == language);
        languages->addAction(action);
        connect(action, &QAction::triggered, this, [this, language] {
            GalleryTheme::SetLanguage(language);
            Retranslate();
        });
    }
}

void GalleryWindow::BuildPages()
{
    while (m_stack->count() > 0) {
        QWidget *page = m_stack->widget(0);
        m_stack->removeWidget(page);
        page->deleteLater();
    }
    m_pageList->clear();
    for (GalleryPage const &page : GalleryPages()) {
        m_pageList->addItem(GalleryTheme::Text(page.titleKey));
        QWidget *widget = page.create(m_scale);
        widget->setObjectName(QStringLiteral("GalleryPage"));
        m_stack->addWidget(widget);
    }
    m_pageList->setCurrentRow(0);
}

void GalleryWindow::Retranslate()
{
    int const current = m_pageList->currentRow();
    setWindowTitle(GalleryTheme::Text(L"gallery_title"));
    BuildMenus();
    BuildPages();
    ShowPage(current);
}
